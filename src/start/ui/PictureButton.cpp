#include "start/ui/PictureButton.h"

#include "start/ui/ChooserColors.h"

#include <QMouseEvent>
#include <QPainter>

namespace ardiphon {

PictureButton::PictureButton(Picture picture, QWidget *parent)
    : QAbstractButton(parent), m_picture(picture)
{
    setFixedSize(pictureSize(picture));
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
}

void PictureButton::setState(PictureState state)
{
    if (m_state == state)
        return;
    m_state = state;
    update();
}

void PictureButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawPicture(painter, rect(), m_picture, m_state);
    if (hasFocus()) {
        painter.setPen(QPen(chooser::QuietText, 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(2, 2, -3, -3));
    }
}

void PictureButton::mouseMoveEvent(QMouseEvent *) { emit mouseMoved(); }

void PictureButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        emit pressed();
}

void PictureButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    emit released();
    if (m_releaseCountsAnywhere || rect().contains(event->position().toPoint()))
        emit clicked();
}

} // namespace ardiphon
