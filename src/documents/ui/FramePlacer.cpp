#include "documents/ui/FramePlacer.h"

#include <QWidget>
#include <QWindow>

namespace ardiphon {

namespace {

constexpr int StepInterval = 25; // milliseconds
constexpr int MostSteps = 60;
constexpr int StepsUntilSettled = 6;

} // namespace

FramePlacer::FramePlacer(QWidget &window) : QObject(&window), m_window(window)
{
    m_timer.setInterval(StepInterval);
    connect(&m_timer, &QTimer::timeout, this, &FramePlacer::step);
}

void FramePlacer::place(const QRect &frame)
{
    m_frame = frame;
    m_stepsLeft = MostSteps;
    m_stepsInPlace = 0;
    m_window.showNormal();
    step();
    m_timer.start();
}

void FramePlacer::step()
{
    m_stepsInPlace = isInPlace() ? m_stepsInPlace + 1 : 0;
    if (--m_stepsLeft <= 0 || m_stepsInPlace >= StepsUntilSettled)
        m_timer.stop();
}

/// Whether the window is at its place; otherwise it is asked to go there again.
bool FramePlacer::isInPlace()
{
    const QWindow *native = m_window.windowHandle();
    if (!native || m_window.isMaximized() || m_window.isFullScreen())
        return false;
    QRect inner = m_frame.marginsRemoved(native->frameMargins());
    inner.setSize(inner.size().expandedTo(m_window.minimumSize()));
    if (native->geometry() == inner)
        return true;
    m_window.setGeometry(inner);
    return false;
}

} // namespace ardiphon
