#include "insight/ui/NameListModel.h"

#include "app/ui/ToolTip.h"
#include "piece/PieceOutline.h"

#include <QFileInfo>

#include <algorithm>
#include <numeric>

namespace ardiphon {

namespace {

enum Rank { BeginsWith, Has, HasLetters, HasNot };

Rank rankOf(const QString &name, const QString &typed)
{
    if (name.startsWith(typed, Qt::CaseInsensitive))
        return BeginsWith;
    if (name.contains(typed, Qt::CaseInsensitive))
        return Has;
    return hasLettersInOrder(name, typed) ? HasLetters : HasNot;
}

QString textOf(const PieceName &name)
{
    const QString kind = kindText(name.kind);
    const QString where = name.scope.isEmpty() ? kind : kind + QStringLiteral(" of ") + name.scope;
    const QString file =
        name.file.isEmpty() ? QString() : QFileInfo(name.file).fileName() + QStringLiteral(", ");
    return QStringLiteral("%1   %2, %3line %4").arg(name.name, where, file).arg(name.place.line);
}

} // namespace

NameListModel::NameListModel(const QList<PieceName> &names, QObject *parent)
    : QAbstractListModel(parent), m_names(names)
{
    setFilter(QString());
}

void NameListModel::setFilter(const QString &typed)
{
    const QString wanted = typed.trimmed();
    std::vector<Rank> ranks;
    for (const PieceName &name : m_names)
        ranks.push_back(rankOf(name.name, wanted));
    std::vector<int> shown(m_names.size());
    std::iota(shown.begin(), shown.end(), 0);
    std::erase_if(shown, [&](int row) { return ranks[size_t(row)] == HasNot; });
    std::stable_sort(shown.begin(), shown.end(),
                     [&](int one, int other) { return ranks[size_t(one)] < ranks[size_t(other)]; });
    beginResetModel();
    m_shown = shown;
    endResetModel();
}

int NameListModel::rowCount(const QModelIndex &above) const
{
    return above.isValid() ? 0 : int(m_shown.size());
}

QVariant NameListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const QString text = textOf(name(index.row()));
    if (role == Qt::DisplayRole)
        return text;
    return role == Qt::ToolTipRole ? plainToolTip(text) : QVariant();
}

} // namespace ardiphon
