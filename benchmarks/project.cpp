// The processor time that the project's window takes for what its user waits for, as medians.

#include "Measure.h"
#include "MeasuredEditor.h"

#include "documents/ui/FormORCSCO.h"

#include <QAction>
#include <QMouseEvent>

using namespace ardiphon;

namespace measure::project {

class Bench
{
public:
    void measureAt(int lines)
    {
        write(lines);
        measure::row("open a pair, lines in each", lines, measure::processTime([this] {
                         m_window = new FormORCSCO(m_program.context);
                         m_window->show();
                         QApplication::processEvents();
                     }),
                     "ms", lines > 100'000 ? 0 : 500);
        drag("drag the horizontal grip", lines, "SplitterH", "menuVisualizzaOrizzontale");
        drag("drag the vertical grip", lines, "SplitterV", "menuVisualizzaVerticale");
        measure::row("idle, project", lines, measure::idleShare(3000), "% of a core", 0.5);
        delete m_window;
    }

private:
    void write(int lines)
    {
        m_program.config.OrchestraFileName = measure::write(
            m_program.folder, "large.orc",
            QByteArray("asig oscili 8000, 440.0, 1 ; a line of text\n").repeated(lines));
        measure::write(m_program.folder, "large.sco", measure::score(lines));
    }

    static void send(QWidget *grip, QEvent::Type type, QPointF at)
    {
        QMouseEvent event(type, grip->mapFromGlobal(at), at, Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(grip, &event);
    }

    /// Moves the grip to and fro, each step with its painting.
    void drag(const char *what, int lines, const char *name, const char *arrangement) const
    {
        m_window->findChild<QAction *>(QLatin1String(arrangement))->trigger();
        QApplication::processEvents();
        auto *grip = m_window->findChild<QWidget *>(QLatin1String(name));
        const QPointF start = grip->mapToGlobal(QPointF(2, 2));
        send(grip, QEvent::MouseButtonPress, start);
        int step = 0;
        const double value = measure::medianOf(100, [&] {
            ++step;
            const int way = 3 * (step <= 50 ? step : 100 - step);
            return measure::processTime([&] {
                send(grip, QEvent::MouseMove, start + QPointF(way, way));
                QApplication::processEvents();
            });
        });
        measure::row(what, lines, value, "ms", 16.7);
    }

    measure::Program m_program;
    FormORCSCO *m_window = nullptr;
};

BENCHMARK(project)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Bench bench;
    for (const int lines : measure::Sizes)
        bench.measureAt(lines);
    return 0;
}

} // namespace measure::project
