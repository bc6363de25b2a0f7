#include "start/ui/TitleStrip.h"

#include <QMouseEvent>
#include <QWindow>

namespace ardiphon {

TitleStrip::TitleStrip(const QString &caption, QWidget *parent) : QLabel(caption, parent)
{
    setTextFormat(Qt::PlainText);
    setMouseTracking(true);
}

void TitleStrip::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_grip = event->globalPosition().toPoint() - window()->pos();
}

void TitleStrip::mouseMoveEvent(QMouseEvent *event)
{
    emit mouseMoved();
    if (!m_grip || !event->buttons().testFlag(Qt::LeftButton))
        return;
    // The system moves the window best, with its snapping; where it cannot, the window follows the
    // mouse here.
    if (window()->windowHandle() && window()->windowHandle()->startSystemMove())
        m_grip.reset();
    else
        window()->move(event->globalPosition().toPoint() - *m_grip);
}

void TitleStrip::mouseReleaseEvent(QMouseEvent *) { m_grip.reset(); }

} // namespace ardiphon
