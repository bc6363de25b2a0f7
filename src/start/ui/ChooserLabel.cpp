#include "start/ui/ChooserLabel.h"

#include "start/ui/ChooserColors.h"

#include <QMouseEvent>
#include <QPainter>

namespace ardiphon {

namespace {

constexpr int SideMargin = 6;
constexpr int Height = 24;

} // namespace

ChooserLabel::ChooserLabel(const QString &text, int width, QWidget *parent)
    : QLabel(text, parent), m_width(width)
{
    setTextFormat(Qt::PlainText);
    setMouseTracking(true);
}

void ChooserLabel::setLit(bool lit)
{
    if (m_lit == lit)
        return;
    m_lit = lit;
    update();
}

QSize ChooserLabel::sizeHint() const
{
    return {m_width, qMax(Height, fontMetrics().height() + SideMargin)};
}

void ChooserLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_lit)
        painter.fillRect(rect(), chooser::Lit);
    const QRect area = rect().adjusted(SideMargin, 0, -SideMargin, 0);
    const int flags = Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine |
                      (m_accessKey ? Qt::TextShowMnemonic : 0);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(area, flags,
                     m_accessKey ? text()
                                 : fontMetrics().elidedText(text(), Qt::ElideMiddle, area.width()));
}

void ChooserLabel::mouseMoveEvent(QMouseEvent *) { emit mouseMoved(); }

void ChooserLabel::mousePressEvent(QMouseEvent *event)
{
    event->accept(); // so that this widget gets the release
}

void ChooserLabel::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit clicked();
}

} // namespace ardiphon
