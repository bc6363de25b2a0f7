#include "typing/ui/CompletionRow.h"

#include "typing/ui/CompletionModel.h"

#include <QPainter>

namespace ardiphon {

namespace {

constexpr int Margin = 4;

QFont kindFont(const QFont &font)
{
    QFont smaller = font;
    smaller.setPointSizeF(font.pointSizeF() * 0.85);
    return smaller;
}

QFont boldFont(const QFont &font)
{
    QFont bold = font;
    bold.setBold(true);
    return bold;
}

} // namespace

void CompletionRow::setLook(const QFont &font, int nameWidth)
{
    m_kindFont = kindFont(font);
    m_boldFont = boldFont(font);
    m_kindWidth = kindWidth(font);
    m_nameWidth = nameWidth;
}

/// With the letters that are typed in bold; what does not fit is left out.
void CompletionRow::drawName(QPainter &painter, const QRect &area, const QString &name,
                             const QList<int> &letters) const
{
    const QFont plain = painter.font();
    painter.setClipRect(area);
    int x = area.left();
    for (qsizetype at = 0; at < name.size() && x < area.right();) {
        const bool isTyped = letters.contains(int(at));
        qsizetype end = at + 1;
        while (end < name.size() && letters.contains(int(end)) == isTyped)
            ++end;
        const QString part = name.mid(at, end - at);
        painter.setFont(isTyped ? m_boldFont : plain);
        const QFontMetrics metrics = painter.fontMetrics();
        painter.drawText(x, area.top() + (area.height() - metrics.height()) / 2 + metrics.ascent(),
                         part);
        x += metrics.horizontalAdvance(part);
        at = end;
    }
    painter.setClipping(false);
    painter.setFont(plain);
}

int CompletionRow::kindWidth(const QFont &font)
{
    const QFontMetrics metrics(kindFont(font));
    int width = 0;
    for (int kind = 0; kind <= int(CompletionKind::Closing); ++kind)
        width =
            std::max(width, metrics.horizontalAdvance(completionKindText(CompletionKind(kind))));
    return width;
}

int CompletionRow::heightOf(const QFont &font) { return QFontMetrics(font).height() + 4; }

void CompletionRow::paint(QPainter *painter, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const
{
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QPalette &palette = option.palette;
    const QColor text =
        palette.color(QPalette::Active, isSelected ? QPalette::HighlightedText : QPalette::Text);
    QColor quiet = text;
    quiet.setAlphaF(isSelected ? 0.85f : 0.6f);
    painter->save();
    if (isSelected)
        painter->fillRect(option.rect, palette.color(QPalette::Active, QPalette::Highlight));

    QRect area = option.rect.adjusted(Margin, 0, -Margin, 0);
    painter->setFont(m_kindFont);
    painter->setPen(quiet);
    const int kind = m_kindWidth;
    painter->drawText(QRect(area.left(), area.top(), kind, area.height()), Qt::AlignVCenter,
                      index.data(CompletionModel::Kind).toString());
    area.setLeft(area.left() + kind + Gap);
    painter->setFont(option.font);
    painter->setPen(text);
    drawName(*painter, QRect(area.left(), area.top(), m_nameWidth, area.height()),
             index.data().toString(), index.data(CompletionModel::Letters).value<QList<int>>());
    area.setLeft(area.left() + m_nameWidth + Gap);
    painter->setPen(quiet);
    painter->drawText(
        area, Qt::AlignVCenter | Qt::TextSingleLine,
        painter->fontMetrics().elidedText(index.data(CompletionModel::Form).toString(),
                                          Qt::ElideRight, area.width()));
    painter->restore();
}

QSize CompletionRow::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    return {100, heightOf(option.font)};
}

} // namespace ardiphon
