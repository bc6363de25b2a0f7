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

/// Draws \a name with the letters that are typed in bold; what does not fit is left out.
void drawName(QPainter &painter, const QRect &area, const QString &name, const QList<int> &letters)
{
    const QFont plain = painter.font();
    QFont bold = plain;
    bold.setBold(true);
    int x = area.left();
    for (qsizetype at = 0; at < name.size() && x < area.right();) {
        const bool isTyped = letters.contains(int(at));
        qsizetype end = at + 1;
        while (end < name.size() && letters.contains(int(end)) == isTyped)
            ++end;
        const QString part = name.mid(at, end - at);
        painter.setFont(isTyped ? bold : plain);
        painter.drawText(QRect(x, area.top(), area.right() - x + 1, area.height()),
                         Qt::AlignVCenter | Qt::TextSingleLine, part);
        x += painter.fontMetrics().horizontalAdvance(part);
        at = end;
    }
    painter.setFont(plain);
}

} // namespace

int CompletionRow::kindWidth(const QFont &font)
{
    const QFontMetrics metrics(kindFont(font));
    int width = 0;
    for (int kind = 0; kind <= int(CompletionKind::Closing); ++kind)
        width =
            std::max(width, metrics.horizontalAdvance(completionKindText(CompletionKind(kind))));
    return width;
}

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
    painter->setFont(kindFont(option.font));
    painter->setPen(quiet);
    const int kind = kindWidth(option.font);
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
    return {100, option.fontMetrics.height() + 4};
}

} // namespace ardiphon
