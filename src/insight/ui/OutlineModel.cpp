#include "insight/ui/OutlineModel.h"

#include "app/ui/ToolTip.h"

#include <QFont>

#include <algorithm>

namespace ardiphon {

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
    m_sections.clear();
    for (int i = 0; i < m_outline.rows.size(); ++i) {
        const OutlineRow &row = m_outline.rows[i];
        if (row.level == 0 || m_sections.empty())
            m_sections.push_back({i, {}});
        if (row.level > 0 && hasLettersInOrder(row.name + u' ' + row.note, m_typed))
            m_sections.back().rows.push_back(i);
    }
    const auto isEmpty = [](const Section &section) { return section.rows.empty(); };
    if (!m_typed.trimmed().isEmpty())
        m_sections.erase(std::remove_if(m_sections.begin(), m_sections.end(), isEmpty),
                         m_sections.end());
}

const OutlineRow *OutlineModel::row(const QModelIndex &index) const
{
    if (!index.isValid())
        return nullptr;
    const QModelIndex above = index.parent();
    const Section &section = m_sections[size_t(above.isValid() ? above.row() : index.row())];
    return &m_outline.rows[above.isValid() ? section.rows[size_t(index.row())] : section.row];
}

QModelIndex OutlineModel::indexOfRow(int row) const
{
    for (size_t i = m_sections.size(); row >= 0 && i-- > 0;) {
        const Section &section = m_sections[i];
        if (section.row > row)
            continue;
        const QModelIndex head = index(int(i), 0);
        const auto found = std::find(section.rows.begin(), section.rows.end(), row);
        return found == section.rows.end() ? head
                                           : index(int(found - section.rows.begin()), 0, head);
    }
    return QModelIndex();
}

// The number of an index is 0 for a section, and else one more than that of its section.

QModelIndex OutlineModel::index(int row, int column, const QModelIndex &above) const
{
    if (!hasIndex(row, column, above))
        return QModelIndex();
    return createIndex(row, column, quintptr(above.isValid() ? above.row() + 1 : 0));
}

QModelIndex OutlineModel::parent(const QModelIndex &index) const
{
    if (!index.isValid() || index.internalId() == 0)
        return QModelIndex();
    return createIndex(int(index.internalId()) - 1, 0, quintptr(0));
}

int OutlineModel::rowCount(const QModelIndex &above) const
{
    if (!above.isValid())
        return int(m_sections.size());
    return above.internalId() == 0 ? int(m_sections[size_t(above.row())].rows.size()) : 0;
}

QVariant OutlineModel::data(const QModelIndex &index, int role) const
{
    const OutlineRow *const found = row(index);
    if (found == nullptr)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return found->note.isEmpty() ? found->name
                                     : found->name + QStringLiteral("   ") + found->note;
    case Qt::ToolTipRole:
        return plainToolTip(QStringLiteral("line %1: %2")
                                .arg(found->place.line)
                                .arg(found->note.isEmpty()
                                         ? found->name
                                         : found->name + QStringLiteral("   ") + found->note));
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
