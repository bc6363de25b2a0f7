#pragma once

#include "check/Problem.h"

#include <QAbstractTableModel>

namespace ardiphon {

/// The problems of a piece as rows: place, sentence, source.
class ProblemsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void setProblems(const QList<Problem> &problems);
    /// The problem of a row of the model; null where there is no such row.
    const Problem *problem(const QModelIndex &index) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QList<Problem> m_problems;
};

/// The colour in which problems of that severity are shown beside the text.
QColor severityColor(Severity severity);

} // namespace ardiphon
