#include "insight/ui/OutlineModel.h"

#include "app/ui/ToolTip.h"

#include <QFont>

#include <algorithm>

namespace ardiphon {

namespace {

QString textOf(const OutlineRow &row)
{
    return row.note.isEmpty() ? row.name : row.name + QStringLiteral("   ") + row.note;
}

QString tipOf(const OutlineRow &row)
{
    if (!row.included.isEmpty())
        return textOf(row) + QStringLiteral("\n") + row.included;
    const QString line = QStringLiteral("line %1: ").arg(row.place.line) + textOf(row);
    return row.file.isEmpty() ? line : row.file + QStringLiteral(", ") + line;
}

} // namespace

void OutlineModel::setOutline(const Outline &outline)
{
    beginResetModel();
    m_outline = outline;
    filter();
    endResetModel();
}

void OutlineModel::setFilter(const QString &typed)
{
    beginResetModel();
    m_typed = typed;
    filter();
    endResetModel();
}

void OutlineModel::filter()
{
    const QList<OutlineRow> &rows = m_outline.rows;
    m_nodes.assign(size_t(rows.size()), Node());
    m_top.clear();
    std::vector<int> open; // the last row of each level up to the present one
    for (int i = 0; i < rows.size(); ++i) {
        while (!open.empty() && rows[open.back()].level >= rows[i].level)
            open.pop_back();
        m_nodes[size_t(i)].above = open.empty() ? None : open.back();
        open.push_back(i);
    }
    std::vector<bool> shown(m_nodes.size());
    m_match = None;
    for (int i = int(rows.size()); i-- > 0;) {
        const bool isSection = rows[i].level == 0;
        const bool has = isSection ? m_typed.trimmed().isEmpty()
                                   : hasLettersInOrder(rows[i].name + u' ' + rows[i].note, m_typed);
        shown[size_t(i)] = shown[size_t(i)] || has;
        m_match = has && !isSection ? i : m_match;
        const int above = m_nodes[size_t(i)].above;
        if (shown[size_t(i)] && above != None)
            shown[size_t(above)] = true;
    }
    for (int i = 0; i < rows.size(); ++i) {
        if (!shown[size_t(i)])
            continue;
        Node &node = m_nodes[size_t(i)];
        std::vector<int> &siblings = node.above == None ? m_top : m_nodes[size_t(node.above)].below;
        node.position = int(siblings.size());
        siblings.push_back(i);
    }
}

const OutlineRow *OutlineModel::row(const QModelIndex &index) const
{
    return index.isValid() ? &m_outline.rows[qsizetype(index.internalId())] : nullptr;
}

QModelIndex OutlineModel::indexOfRow(int row) const
{
    while (row != None && m_nodes[size_t(row)].position == None)
        row = m_nodes[size_t(row)].above;
    return row == None ? QModelIndex()
                       : createIndex(m_nodes[size_t(row)].position, 0, quintptr(row));
}

QModelIndex OutlineModel::firstMatch() const
{
    return m_match == None ? index(0, 0) : indexOfRow(m_match);
}

// The number of an index is that of its row in the outline.

const std::vector<int> &OutlineModel::rowsIn(const QModelIndex &above) const
{
    return above.isValid() ? m_nodes[above.internalId()].below : m_top;
}

QModelIndex OutlineModel::index(int row, int column, const QModelIndex &above) const
{
    if (!hasIndex(row, column, above))
        return QModelIndex();
    return createIndex(row, column, quintptr(rowsIn(above)[size_t(row)]));
}

QModelIndex OutlineModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexOfRow(m_nodes[index.internalId()].above) : QModelIndex();
}

int OutlineModel::rowCount(const QModelIndex &above) const { return int(rowsIn(above).size()); }

QVariant OutlineModel::data(const QModelIndex &index, int role) const
{
    const OutlineRow *const found = row(index);
    if (found == nullptr)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return textOf(*found);
    case Qt::ToolTipRole:
        return plainToolTip(tipOf(*found));
    case Qt::FontRole: {
        QFont font;
        font.setBold(found->level == 0);
        font.setItalic(found->kind == LandmarkKind::Title);
        return font;
    }
    default:
        return QVariant();
    }
}

} // namespace ardiphon
