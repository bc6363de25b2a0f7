#include "typing/ui/CompletionModel.h"

#include <algorithm>
#include <utility>

namespace ardiphon {

void CompletionModel::setList(std::unique_ptr<CompletionList> list)
{
    beginResetModel();
    m_list = std::move(list);
    endResetModel();
}

void CompletionModel::narrow(const QString &typed)
{
    beginResetModel();
    m_list->narrow(typed);
    endResetModel();
}

int CompletionModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !m_list ? 0 : std::min(m_list->size(), MostRows);
}

QVariant CompletionModel::data(const QModelIndex &index, int role) const
{
    if (!m_list || !index.isValid() || index.row() >= m_list->size())
        return QVariant();
    const Completion &of = m_list->at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return of.name;
    case Kind:
        return completionKindText(of.kind);
    case Form:
        return textOf(of, m_opcodes).form;
    case Letters: {
        QList<int> letters;
        if (const auto match = matchName(m_list->typed(), of.name, of.prefix))
            letters = QList<int>(match->letters.begin(), match->letters.end());
        return QVariant::fromValue(letters);
    }
    default:
        return QVariant();
    }
}

} // namespace ardiphon
