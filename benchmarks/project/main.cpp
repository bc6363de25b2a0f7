// How long the project's window takes for what its user waits for, as medians. Run it with
// QT_QPA_PLATFORM=offscreen from any folder; it writes only to a temporary folder of its own.

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"
#include "documents/ui/FormORCSCO.h"
#include "platform/ui/QtDialogs.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

using namespace ardiphon;

namespace {

class Bench
{
public:
    Bench()
    {
        LoadConfiguration(m_config, m_settings);
        m_config.Words.LoadWordTables(QStringLiteral(PROGRAM_DIR));
        m_config.WindowMaximized = false;
        m_config.WindowWidth = 1200 * 15;
        m_config.WindowHeight = 900 * 15;
    }

    void measure(int lines)
    {
        const double opening = open(lines);
        std::printf("%-40s %8d lines each  %8.2f ms   (under 500)\n", "open and paint a pair",
                    lines, opening);
        drag("SplitterH", "menuVisualizzaOrizzontale", lines);
        drag("SplitterV", "menuVisualizzaVerticale", lines);
        idle(lines);
        delete m_window;
    }

private:
    void write(const QString &name, int lines, const QByteArray &line) const
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write the large piece");
        file.write(line.repeated(lines));
    }

    double open(int lines)
    {
        write(QStringLiteral("large.orc"), lines, "asig oscili 8000, 440.0, 1 ; a line of text\n");
        write(QStringLiteral("large.sco"), lines,
              "i1 0 0.5 8000 440.0 1 ; a line of a score too\n");
        m_config.OrchestraFileName = m_folder.filePath(QStringLiteral("large.orc"));
        QElapsedTimer timer;
        timer.start();
        m_window = new FormORCSCO(m_program);
        m_window->show();
        QApplication::processEvents();
        return double(timer.nsecsElapsed()) / 1e6;
    }

    static void send(QWidget *grip, QEvent::Type type, QPointF at)
    {
        QMouseEvent event(type, grip->mapFromGlobal(at), at, Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(grip, &event);
    }

    /// Moves the grip to and fro, each step with its painting.
    void drag(const char *name, const char *arrangement, int lines) const
    {
        m_window->findChild<QAction *>(QLatin1String(arrangement))->trigger();
        QApplication::processEvents();
        auto *grip = m_window->findChild<QWidget *>(QLatin1String(name));
        const QPointF start = grip->mapToGlobal(QPointF(2, 2));
        send(grip, QEvent::MouseButtonPress, start);
        std::vector<double> values;
        for (int step = 1; step <= 100; ++step) {
            QElapsedTimer timer;
            timer.start();
            const int way = 3 * (step <= 50 ? step : 100 - step);
            send(grip, QEvent::MouseMove, start + QPointF(way, way));
            QApplication::processEvents();
            values.push_back(double(timer.nsecsElapsed()) / 1e6);
        }
        std::sort(values.begin(), values.end());
        std::printf("%-40s %8d lines each  %8.2f ms, worst %.2f   (one frame, 16.7)\n", name, lines,
                    values[values.size() / 2], values.back());
    }

    static void idle(int lines)
    {
        const auto processor = [] { return 1000.0 * double(std::clock()) / CLOCKS_PER_SEC; };
        const double before = processor();
        QElapsedTimer timer;
        for (timer.start(); timer.elapsed() < 3000;)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        std::printf("%-40s %8d lines each  %8.2f %%    (under 0.5)\n", "idle for 3 s", lines,
                    100 * (processor() - before) / double(timer.elapsed()));
    }

    QTemporaryDir m_folder;
    ConfigurationBlock m_config;
    SettingsStore m_settings{m_folder.filePath(QStringLiteral("settings.ini"))};
    QtDialogs m_dialogs;
    ProgramContext m_program{m_config, m_settings, m_dialogs, {}};
    FormORCSCO *m_window = nullptr;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Bench bench;
    for (const int lines : {1000, 50000, 230000}) // the last is 10 MB each
        bench.measure(lines);
    return 0;
}
