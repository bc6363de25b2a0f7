#include "audio/ui/MySlider.h"

#include "app/Numbers.h"
#include "platform/Twips.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <limits>

namespace ardiphon {

namespace {

constexpr int HeightInTwips = 215;
constexpr int StepsOfArrow = 100; ///< from one end to the other
constexpr int StepsOfPage = 10;

int rounded(double number)
{
    return roundedWithin(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
}

} // namespace

MySlider::MySlider(QWidget *parent) : QWidget(parent)
{
    setFixedHeight(toPixels(HeightInTwips));
    setMinimumWidth(4 * ThumbWidth);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
}

QSize MySlider::sizeHint() const { return {20 * ThumbWidth, height()}; }

int MySlider::thumbSpan() const { return std::max(0, TrackPixels - ThumbWidth); }

void MySlider::SetValue(int value)
{
    m_value = std::min(std::max(0, value), m_max);
    if (m_max != 0)
        m_thumbLeft = double(m_value) * thumbSpan() / m_max;
    update();
}

void MySlider::moveThumb(double left)
{
    const int span = thumbSpan();
    m_thumbLeft = std::clamp<double>(left, 0, span);
    if (span > 0) // a control that is too narrow keeps its value
        m_value = rounded(m_thumbLeft * m_max / span);
    update();
}

bool MySlider::isOnThumb(double x) const
{
    return x >= m_thumbLeft && x < m_thumbLeft + ThumbWidth;
}

void MySlider::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    TrackPixels = width();
}

// Mouse. A drag uses the position on the screen, so it goes on outside the control. ---------------

void MySlider::mousePressEvent(QMouseEvent *event)
{
    if (m_grabbed || isOnThumb(event->position().x())) {
        m_grabbed = true;
        GrabOffset = rounded(event->globalPosition().x() - m_thumbLeft);
        emit MouseDown();
        return;
    }
    moveThumb(event->position().x());
    emit Click();
}

void MySlider::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_grabbed || !event->buttons().testFlag(Qt::LeftButton))
        return;
    moveThumb(event->globalPosition().x() - GrabOffset);
    emit Scroll();
}

void MySlider::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_grabbed)
        return;
    m_grabbed = event->buttons() != Qt::NoButton;
    emit MouseUp();
}

// Keys. ------------------------------------------------------------------------------------------

/// Whether \a key moves the thumb, and to which value.
bool MySlider::keyStep(int key, qint64 &value) const
{
    const qint64 arrow = std::max(1, m_max / StepsOfArrow);
    const qint64 page = std::max(1, m_max / StepsOfPage);
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        value = m_value - arrow;
        return true;
    case Qt::Key_Right:
    case Qt::Key_Up:
        value = m_value + arrow;
        return true;
    case Qt::Key_PageDown:
        value = m_value - page;
        return true;
    case Qt::Key_PageUp:
        value = m_value + page;
        return true;
    case Qt::Key_Home:
        value = 0;
        return true;
    case Qt::Key_End:
        value = m_max;
        return true;
    default:
        return false;
    }
}

void MySlider::keyPressEvent(QKeyEvent *event)
{
    qint64 value = 0;
    const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
    if (!plain || !keyStep(event->key(), value)) {
        QWidget::keyPressEvent(event);
        return;
    }
    SetValue(static_cast<int>(std::clamp<qint64>(value, 0, std::max(0, m_max))));
    emit Click();
}

// Drawing. ---------------------------------------------------------------------------------------

void MySlider::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF groove(ThumbWidth / 2.0, height() / 2.0 - 2, width() - ThumbWidth, 4);
    QRectF played = groove;
    played.setWidth(m_thumbLeft);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().mid());
    painter.drawRoundedRect(groove, 2, 2);
    painter.setBrush(palette().highlight());
    painter.drawRoundedRect(played, 2, 2);

    const QRectF thumb(m_thumbLeft + 0.5, 0.5, ThumbWidth - 1, height() - 1);
    painter.setPen(QPen(hasFocus() ? palette().highlight() : palette().dark(), hasFocus() ? 2 : 1));
    painter.setBrush(palette().button());
    painter.drawRoundedRect(thumb.adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}

} // namespace ardiphon
