#pragma once

#include "piece/PieceNames.h"

#include <QAbstractListModel>

#include <vector>

namespace ardiphon {

/// The names of a piece that have what is typed, the best first: those that begin with it, those
/// that have it as it is, those that have its letters in order.
class NameListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    NameListModel(const QList<PieceName> &names, QObject *parent);

    void setFilter(const QString &typed);
    const PieceName &name(int row) const { return m_names[m_shown[size_t(row)]]; }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    const QList<PieceName> m_names;
    std::vector<int> m_shown;
};

} // namespace ardiphon
