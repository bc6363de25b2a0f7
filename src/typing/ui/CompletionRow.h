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

    /// The font of the rows, and how wide the names are, in pixels.
    void setLook(const QFont &font, int nameWidth);
    /// How wide the kinds are in that font.
    static int kindWidth(const QFont &font);
    static int heightOf(const QFont &font);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    void drawName(QPainter &painter, const QRect &area, const QString &name,
                  const QList<int> &letters) const;

    QFont m_kindFont;
    QFont m_boldFont;
    int m_kindWidth = 60;
    int m_nameWidth = 100;
};

} // namespace ardiphon
