#pragma once

#include "piece/PieceOutline.h"

#include <QAbstractItemModel>

#include <vector>

namespace ardiphon {

/// The rows of an outline as a tree of two levels, without those that a filter leaves out.
class OutlineModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    /// Replaces all rows.
    void setOutline(const Outline &outline);
    const Outline &outline() const { return m_outline; }
    /// Shows the rows whose name or note has the letters of \a typed in their order, and the
    /// sections that they are in; all for "".
    void setFilter(const QString &typed);

    /// The row of the outline at \a index; null for none.
    const OutlineRow *row(const QModelIndex &index) const;
    /// The shown row that this row of the outline is, or else its section. Invalid for -1, or where
    /// neither is shown.
    QModelIndex indexOfRow(int row) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &) const override { return 1; }
    QVariant data(const QModelIndex &index, int role) const override;

private:
    /// A section with what is shown of it.
    struct Section
    {
        int row = 0;
        std::vector<int> rows;
    };

    void filter();

    Outline m_outline;
    QString m_typed;
    std::vector<Section> m_sections;
};

} // namespace ardiphon
