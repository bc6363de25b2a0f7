// How long the CSD window takes for what its user waits for, as medians. Run it with
// QT_QPA_PLATFORM=offscreen from any folder; it writes only to a temporary folder of its own.

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"
#include "documents/ui/FormCSD.h"
#include "language/editor/LEditOCX.h"
#include "platform/ui/QtDialogs.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

using namespace ardiphon;

namespace {

double processorMilliseconds() { return 1000.0 * double(std::clock()) / CLOCKS_PER_SEC; }

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void report(const char *what, int lines, const std::vector<double> &values, const char *limit)
{
    std::printf("%-46s %9d lines  %9.2f ms   (%s)\n", what, lines, median(values), limit);
}

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
        open(lines);
        report("a tick of the tag panel", lines, times(30, [this] { tick(); }), "under 10");
        idle(lines, "idle for 3 s, one view");
        m_window->findChild<QAction *>(QStringLiteral("buttonSplit"))->trigger();
        QApplication::processEvents();
        idle(lines, "idle for 3 s, split");
        const char *const frame = lines > 100000 ? "under 150" : "one frame";
        report("a letter, seen in both views", lines,
               times(21, [this] { type(Qt::Key_A, QStringLiteral("a")); }), frame);
        report("Enter, seen in both views", lines,
               times(11, [this] { type(Qt::Key_Return, QStringLiteral("\r")); }),
               lines > 100000 ? "under 150" : "under 30");
        first()->ClearState(2);
        delete m_window;
    }

private:
    LEditOCX *first() const { return m_window->findChild<LEditOCX *>(QStringLiteral("LEDIT1")); }
    LEditOCX *second() const { return m_window->findChild<LEditOCX *>(QStringLiteral("LEDIT2")); }

    void open(int lines)
    {
        const QString path = m_folder.filePath(QStringLiteral("large.csd"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write the large piece");
        file.write("<CsoundSynthesizer>\n<CsScore>\n");
        for (int i = 0; i < lines; ++i)
            file.write(QByteArray("i1 ") + QByteArray::number(i % 100000) + " 0.5 8000 440.0 1\n");
        file.close();
        m_config.CSDFileName = path;
        m_window = new FormCSD(m_program);
        m_window->show();
        QApplication::processEvents();
    }

    static std::vector<double> times(int runs, const std::function<void()> &step)
    {
        std::vector<double> values;
        for (int i = 0; i < runs; ++i) {
            QElapsedTimer timer;
            timer.start();
            step();
            values.push_back(double(timer.nsecsElapsed()) / 1e6);
        }
        return values;
    }

    /// A tick after the text moved on the screen, which makes the words due again.
    void tick() const
    {
        emit first()->Repaint();
        QTimerEvent event(m_window->findChild<QTimer *>(QStringLiteral("Timer1"))->timerId());
        QApplication::sendEvent(m_window->findChild<QTimer *>(QStringLiteral("Timer1")), &event);
    }

    void idle(int lines, const char *what) const
    {
        QElapsedTimer timer;
        for (timer.start(); timer.elapsed() < 6000;) // until every word was looked for
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        const double before = processorMilliseconds();
        for (timer.start(); timer.elapsed() < 3000;)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        const double share = 100 * (processorMilliseconds() - before) / double(timer.elapsed());
        std::printf("%-46s %9d lines  %9.2f %%    (under 0.5)\n", what, lines, share);
    }

    void type(int key, const QString &text) const
    {
        QWidget *view = first()->focusProxy();
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(view, &press);
        auto *copying = m_window->findChild<QTimer *>(QStringLiteral("TimerAggiorna"));
        while (copying->isActive())
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QApplication::processEvents(); // both views are painted
    }

    QTemporaryDir m_folder;
    ConfigurationBlock m_config;
    SettingsStore m_settings{m_folder.filePath(QStringLiteral("settings.ini"))};
    QtDialogs m_dialogs;
    ProgramContext m_program{m_config, m_settings, m_dialogs, {}};
    FormCSD *m_window = nullptr;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Bench bench;
    for (const int lines : {1000, 50000, 1000000})
        bench.measure(lines);
    return 0;
}
