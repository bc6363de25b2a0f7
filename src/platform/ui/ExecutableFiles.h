#pragma once

#include <QSortFilterProxyModel>
#include <QStringList>

class QFileDialog;

namespace ardiphon {

/// What a file dialog lists: everything, or, while one of the filters for programs is chosen there,
/// the folders and the files that can be executed.
class ExecutableFiles : public QSortFilterProxyModel
{
public:
    /// To be made when \a dialog has its name filters; \a programFilters are those for programs.
    ExecutableFiles(QFileDialog &dialog, const QStringList &programFilters);

    /// In the dialog's own order, folders first.
    void sort(int column, Qt::SortOrder order) override;

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    bool m_programsOnly = false;
};

} // namespace ardiphon
