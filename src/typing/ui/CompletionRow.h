#pragma once

#include <QStyledItemDelegate>

namespace ardiphon {

/// Draws a row of suggestions in three columns: the kind, the name with what is typed of it in
/// bold, and the signature.
class CompletionRow : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static constexpr int Gap = 8; ///< between two columns, in pixels

    /// How wide the names are, in pixels.
    void setNameWidth(int width) { m_nameWidth = width; }
    /// How wide the kinds are in that font.
    static int kindWidth(const QFont &font);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    int m_nameWidth = 100;
};

} // namespace ardiphon
