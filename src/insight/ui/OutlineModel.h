#pragma once

#include "piece/PieceOutline.h"

#include <QAbstractItemModel>

#include <vector>

namespace ardiphon {

/// The rows of an outline as the tree that their levels tell, without those that a filter leaves
/// out.
class OutlineModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    /// Replaces all rows.
    void setOutline(const Outline &outline);
    const Outline &outline() const { return m_outline; }
    /// Shows the rows whose name or note has the letters of \a typed in their order, and the
    /// sections and files that they are in; all for "".
    void setFilter(const QString &typed);

    /// The row of the outline at \a index; null for none.
    const OutlineRow *row(const QModelIndex &index) const;
    /// The shown row that this row of the outline is, or else the one that it is in. Invalid for
    /// -1, or where none of these is shown.
    QModelIndex indexOfRow(int row) const;
    /// The first row that is shown for what is typed, not for what is in it; else the first one.
    QModelIndex firstMatch() const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &) const override { return 1; }
    QVariant data(const QModelIndex &index, int role) const override;

private:
    static constexpr int None = -1;

    /// Where a row of the outline is in the tree.
    struct Node
    {
        int above = None;    ///< the row that it is in
        int position = None; ///< among those that are shown there; None for one that is not shown
        std::vector<int> below; ///< those that are shown in it
    };

    void filter();
    /// The rows that are shown in \a above; those at the top for an invalid index.
    const std::vector<int> &rowsIn(const QModelIndex &above) const;

    Outline m_outline;
    QString m_typed;
    std::vector<Node> m_nodes; ///< one for each row
    std::vector<int> m_top;
    int m_match = None; ///< the first row that has what is typed
};

} // namespace ardiphon
