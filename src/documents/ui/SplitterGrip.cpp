#include "documents/ui/SplitterGrip.h"

#include "platform/Twips.h"

#include <QMouseEvent>
#include <QPainter>

namespace ardiphon {

namespace {

constexpr QSize GripSize(16, 14); // the vertical arrangement has 250 twips for it
constexpr int DotDistance = 4;
constexpr int DotRows = 3;

} // namespace

SplitterGrip::SplitterGrip(Qt::Orientation direction, QWidget *parent)
    : QWidget(parent), m_direction(direction)
{
    setCursor(direction == Qt::Vertical ? Qt::SplitVCursor : Qt::SplitHCursor);
    setFixedSize(GripSize);
}

int SplitterGrip::along(QPoint point) const
{
    return toTwips(m_direction == Qt::Vertical ? point.y() : point.x());
}

void SplitterGrip::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_grab = along(event->globalPosition().toPoint()) - along(pos());
}

void SplitterGrip::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() & Qt::LeftButton)
        emit dragged(along(event->globalPosition().toPoint()) - m_grab);
}

void SplitterGrip::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(palette().color(QPalette::Button));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::WindowText));
    const QPoint middle = rect().center();
    for (int row = -1; row < DotRows - 1; ++row)
        for (const int side : {-2, 2}) {
            const QPoint offset = m_direction == Qt::Vertical ? QPoint(row * DotDistance, side)
                                                              : QPoint(side, row * DotDistance);
            painter.drawRect(QRect(middle + offset, QSize(2, 2)));
        }
}

} // namespace ardiphon
