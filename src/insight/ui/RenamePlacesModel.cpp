#include "insight/ui/RenamePlacesModel.h"

#include <algorithm>

namespace ardiphon {

namespace {

// Characters of a line that are shown before and behind the name.
constexpr int ShownBefore = 60;
constexpr int ShownBehind = 200;

} // namespace

RenamePlacesModel::RenamePlacesModel(DocumentName documentName, QObject *parent)
    : QAbstractTableModel(parent), m_documentName(std::move(documentName))
{
}

void RenamePlacesModel::setPlaces(const Piece *piece, const PieceRename *rename)
{
    beginResetModel();
    m_piece = piece;
    m_rename = rename;
    endResetModel();
}

int RenamePlacesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !m_rename ? 0 : int(m_rename->count());
}

int RenamePlacesModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant RenamePlacesModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !m_rename)
        return {};
    const PiecePlace place = m_rename->place(index.row());
    if (index.column() == TextColumn)
        return textData(place, role);
    if (role == Qt::TextAlignmentRole && index.column() == LineColumn)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    return index.column() == LineColumn ? QVariant(place.line) : m_documentName(place.role);
}

/// The line without the blanks at its beginning; of a long one the part around the name.
QVariant RenamePlacesModel::textData(const PiecePlace &place, int role) const
{
    if (role == NameLength)
        return place.length;
    if (role != Qt::DisplayRole && role != NameStart)
        return {};
    const QByteArrayView bytes = m_piece->text(place.role)->line(place.line);
    const int first = byteOfCharacter(bytes, std::max(0, place.column - ShownBefore));
    QString text = QString::fromUtf8(
        bytes.sliced(first, std::min<qsizetype>(bytes.size() - first, 4 * ShownBehind)));
    qsizetype start = place.column - charactersOf(bytes, first);
    text.truncate(start + place.length + ShownBehind);
    const auto isBlank = [](QChar c) { return c.isSpace(); };
    const qsizetype blanks = std::find_if_not(text.begin(), text.end(), isBlank) - text.begin();
    text.remove(0, std::min(blanks, start));
    start -= std::min(blanks, start);
    text.replace(u'\t', u' ');
    return role == NameStart ? QVariant(int(start)) : QVariant(text);
}

QVariant RenamePlacesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    static const char *const titles[] = {"Document", "Line", "Text"};
    return QLatin1String(titles[section]);
}

} // namespace ardiphon
