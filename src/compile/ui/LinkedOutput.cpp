#include "compile/ui/LinkedOutput.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTextBlock>

#include <utility>

namespace ardiphon {

namespace {

constexpr QColor LinkColor(0, 0, 220);

void underline(QPainter &painter, const QTextLayout &layout, QPointF origin)
{
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        const QRectF words = line.naturalTextRect().translated(origin);
        const qreal y = words.top() + line.ascent() + 1.5;
        painter.drawLine(QPointF(words.left(), y), QPointF(words.right(), y));
    }
}

} // namespace

LinkedOutput::LinkedOutput(LinkTest isLink, int linesAround, QWidget *parent)
    : CompilerOutput(parent), m_isLink(std::move(isLink)), m_linesAround(linesAround)
{
    viewport()->setMouseTracking(true);
}

LinkedOutput::Line LinkedOutput::around(const QTextBlock &block) const
{
    Line line{{block.text()}, 0};
    QTextBlock above = block.previous();
    QTextBlock below = block.next();
    for (int i = 0; i < m_linesAround; ++i) {
        if (above.isValid()) {
            line.lines.prepend(above.text());
            ++line.index;
            above = above.previous();
        }
        if (below.isValid()) {
            line.lines.append(below.text());
            below = below.next();
        }
    }
    return line;
}

QPointF LinkedOutput::originOf(const QTextBlock &block) const
{
    return blockBoundingGeometry(block).translated(contentOffset()).topLeft();
}

std::optional<LinkedOutput::Line> LinkedOutput::linkAt(QPoint point) const
{
    const QTextBlock block = cursorForPosition(point).block();
    const QRectF place = blockBoundingRect(block).translated(originOf(block));
    if (point.y() < place.top() || point.y() > place.bottom()) // the block is only the nearest
        return std::nullopt;
    const Line line = around(block);
    return m_isLink(line.lines, line.index) ? std::optional(line) : std::nullopt;
}

void LinkedOutput::paintEvent(QPaintEvent *event)
{
    CompilerOutput::paintEvent(event);
    QPainter painter(viewport());
    painter.setPen(LinkColor);
    for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        const QPointF origin = originOf(block);
        if (origin.y() > viewport()->height())
            break;
        const Line line = around(block);
        if (m_isLink(line.lines, line.index))
            underline(painter, *block.layout(), origin);
    }
}

void LinkedOutput::mouseMoveEvent(QMouseEvent *event)
{
    CompilerOutput::mouseMoveEvent(event);
    const bool onLink = linkAt(event->position().toPoint()).has_value();
    viewport()->setCursor(onLink ? Qt::PointingHandCursor : Qt::IBeamCursor);
    viewport()->setToolTip(onLink ? tr("Double click: go to this line") : QString());
}

void LinkedOutput::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (const auto link = linkAt(event->position().toPoint()))
        emit linkChosen(link->lines, link->index);
    else
        CompilerOutput::mouseDoubleClickEvent(event);
}

} // namespace ardiphon
