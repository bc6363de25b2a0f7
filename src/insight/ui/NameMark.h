#pragma once

#include <QStyledItemDelegate>

namespace ardiphon {

/// Draws the text of a RenamePlacesModel with the name in it marked.
class NameMark : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};

} // namespace ardiphon
