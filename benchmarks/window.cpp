// The processor time that the CSD window takes for what its user waits for, as medians.

#include "Measure.h"
#include "MeasuredEditor.h"

#include "documents/ui/FormCSD.h"
#include "workbench/ui/PieceFollower.h"

#include <QAction>
#include <QKeyEvent>
#include <QTimer>

using namespace ardiphon;

namespace measure::window {

class Bench
{
public:
    void measureAt(int lines)
    {
        open(lines);
        reportTicks(lines);
        reportKeys("key at the end, by its tokens", lines, false);
        reportKeys("key at the end, by meaning", lines, true);
        reportIdle("idle", lines);
        m_window->findChild<QAction *>(QStringLiteral("buttonSplit"))->trigger();
        QApplication::processEvents();
        reportIdle("idle, split", lines);
        const bool large = lines > 100'000;
        report("split copy of a letter", lines, 21, large ? 150 : 16.7,
               [this] { type(Qt::Key_A, QStringLiteral("a")); });
        report("split copy of Enter", lines, 11, large ? 150 : 30,
               [this] { type(Qt::Key_Return, QStringLiteral("\r")); });
        first()->ClearState(TextState);
        delete m_window;
    }

private:
    LEditOCX *first() const { return m_window->findChild<LEditOCX *>(QStringLiteral("LEDIT1")); }

    void open(int lines)
    {
        m_program.config.CSDFileName =
            measure::write(m_program.folder, "large.csd",
                           "<CsoundSynthesizer>\r\n<CsScore>\r\n" + measure::score(lines));
        m_window = new FormCSD(m_program.context);
        m_window->show();
        QApplication::processEvents();
    }

    template <typename Step>
    static void report(const char *what, int lines, int runs, double limit, Step step)
    {
        const double value = measure::medianOf(runs, [&] { return measure::processTime(step); });
        measure::row(what, lines, value, "ms", limit);
    }

    /// Of ticks that follow a key at the end of the text, once every word was looked for.
    void reportTicks(int lines) const
    {
        measure::idle(4000);
        measure::goTo(*first(), lines, 3);
        const double value = measure::medianOf(30, [this] {
            type(Qt::Key_A, QStringLiteral("a"));
            return measure::processTime([this] { tick(); });
        });
        measure::row("tick behind a key", lines, value, "ms", 1);
        measure::goTo(*first(), 1, 0);
    }

    /// Until the model of the piece has been read on, and what changed is painted.
    void reportKeys(const char *what, int lines, bool byMeaning)
    {
        m_program.config.ColoursByMeaning = byMeaning;
        measure::goTo(*first(), lines, 3);
        first()->Redraw();
        measure::idle(100);
        const auto &follower = *m_window->findChild<PieceFollower *>();
        report(what, lines, 101, 4, [&] {
            type(Qt::Key_A, QStringLiteral("a"));
            while (!follower.piece().isRead())
                QApplication::processEvents();
            QApplication::processEvents();
        });
        m_program.config.ColoursByMeaning = false;
        measure::goTo(*first(), 1, 0);
    }

    void tick() const
    {
        QTimerEvent event(m_window->findChild<QTimer *>(QStringLiteral("Timer1"))->timerId());
        QApplication::sendEvent(m_window->findChild<QTimer *>(QStringLiteral("Timer1")), &event);
    }

    static void reportIdle(const char *what, int lines)
    {
        measure::idle(6000); // until every word was looked for
        measure::row(what, lines, measure::idleShare(3000), "% of a core", 0.5);
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

    measure::Program m_program;
    FormCSD *m_window = nullptr;
};

BENCHMARK(window)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Bench bench;
    for (const int lines : measure::Sizes)
        bench.measureAt(lines);
    return 0;
}

} // namespace measure::window
