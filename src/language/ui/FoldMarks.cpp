#include "language/ui/FoldMarks.h"

#include "language/editor/LEditOCX.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>

namespace ardiphon {

namespace {

constexpr float FoldedInk = 0.85F;
constexpr float OpenInk = 0.6F;
constexpr float FaintInk = 0.25F;
constexpr int BarWidth = 2; // of the free space before a digit

/// Points to the right for a fold, down for what can be folded.
QPolygonF triangle(FoldMark mark, const QRectF &place)
{
    const double half = std::min(place.width() - 1, place.height() / 2) / 2;
    const QPointF center = place.center();
    const QPointF along = mark == FoldMark::Folded ? QPointF(half, 0) : QPointF(0, half);
    const QPointF across(along.y(), along.x());
    return QPolygonF(
        {center + along, center - along * 0.6 + across, center - along * 0.6 - across});
}

} // namespace

bool FoldMarks::isNone() const { return !m_foldEnd && !m_editor.HasFolds(); }

FoldMark FoldMarks::markOf(int line) const
{
    if (m_editor.IsFolded(line))
        return FoldMark::Folded;
    return m_foldEnd && line <= m_editor.LineCount() && m_foldEnd(line) > line ? FoldMark::Open
                                                                               : FoldMark::None;
}

bool FoldMarks::toggle(int line)
{
    switch (markOf(line)) {
    case FoldMark::None:
        return false;
    case FoldMark::Open:
        m_editor.FoldLines({{line + 1, m_foldEnd(line)}});
        return true;
    case FoldMark::Folded:
        m_editor.UnfoldAt(line);
        return true;
    }
    return false;
}

QRect FoldMarks::place(const QRect &row, int digit, bool isFull)
{
    return QRect(row.left(), row.top(), isFull ? std::max(digit / 2, BarWidth) : digit,
                 row.height());
}

void FoldMarks::draw(QPainter &painter, FoldMark mark, const QRect &place, bool isFull, bool isNear)
{
    const bool isFolded = mark == FoldMark::Folded;
    QColor ink = painter.pen().color();
    ink.setAlphaF(isFolded ? FoldedInk : isNear ? OpenInk : FaintInk);
    if (isFull) {
        painter.fillRect(QRect(place.left(), place.top() + 1, BarWidth, place.height() - 2), ink);
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawPolygon(triangle(mark, place));
    painter.restore();
}

} // namespace ardiphon
