#include "app/ui/PathLabel.h"

#include "app/ui/ToolTip.h"

#include <QPainter>

namespace ardiphon {

namespace {

constexpr int Margin = 4;
constexpr int LeastCharacters = 24;

} // namespace

PathLabel::PathLabel(const QString &name, QWidget *parent) : QLabel(parent)
{
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize PathLabel::sizeHint() const
{
    const int border = 2 * (frameWidth() + Margin);
    return {fontMetrics().averageCharWidth() * LeastCharacters + border,
            fontMetrics().height() + border};
}

void PathLabel::showPath(const QString &path)
{
    setText(path);
    setToolTip(plainToolTip(path));
}

void PathLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawFrame(&painter);
    const QRect room = contentsRect().adjusted(Margin, 0, -Margin, 0);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width()));
}

} // namespace ardiphon
