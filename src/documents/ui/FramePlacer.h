#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>

namespace ardiphon {

/// Places a window on the screen by the outer edges of its frame.
///
/// A window manager takes its own time for what it is asked, and the frame of a window that leaves
/// the maximised state changes; so the place is asked for repeatedly for a moment, until the window
/// stays there.
class FramePlacer : public QObject
{
    Q_OBJECT

public:
    explicit FramePlacer(QWidget &window);

    /// Leaves the maximised state and moves the window, which is shown, to \a frame. A size below
    /// the window's minimum becomes the minimum.
    void place(const QRect &frame);

private:
    void step();
    bool isInPlace();

    QWidget &m_window;
    QTimer m_timer;
    QRect m_frame;
    int m_stepsLeft = 0;
    int m_stepsInPlace = 0; ///< one after the other
};

} // namespace ardiphon
