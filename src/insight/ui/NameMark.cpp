#include "insight/ui/NameMark.h"

#include "insight/ui/RenamePlacesModel.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

namespace ardiphon {

void NameMark::paint(QPainter *painter, const QStyleOptionViewItem &option,
                     const QModelIndex &index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QStyle &style = item.widget ? *item.widget->style() : *QApplication::style();
    const QRect room = style.subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget);
    const QString text = std::exchange(item.text, QString());
    style.drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

    QTextLayout::FormatRange name;
    name.start = index.data(RenamePlacesModel::NameStart).toInt();
    name.length = index.data(RenamePlacesModel::NameLength).toInt();
    name.format.setFontWeight(QFont::Bold);
    name.format.setFontUnderline(true);
    QTextLayout layout(text, item.font);
    layout.setFormats({name});
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(1 << 20);
    layout.endLayout();

    const bool isSelected = item.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setClipRect(room);
    painter->setPen(item.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &item, item.widget) + 1;
    layout.draw(painter,
                QPointF(room.left() + margin, room.top() + (room.height() - line.height()) / 2));
    painter->restore();
}

} // namespace ardiphon
