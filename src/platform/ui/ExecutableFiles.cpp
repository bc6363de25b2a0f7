#include "platform/ui/ExecutableFiles.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>

namespace ardiphon {

ExecutableFiles::ExecutableFiles(QFileDialog &dialog, const QStringList &programFilters)
    : QSortFilterProxyModel(&dialog)
{
    // The dialog gives the chosen filter as it was set, or as it is shown, without its patterns.
    QStringList filters;
    for (const QString &filter : programFilters) {
        filters.append(filter.simplified());
        filters.append(filter.left(filter.lastIndexOf(u'(')).simplified());
    }
    const auto takeFilter = [this, &dialog, filters] {
        m_programsOnly = filters.contains(dialog.selectedNameFilter());
        invalidateFilter();
    };
    takeFilter();
    connect(&dialog, &QFileDialog::filterSelected, this, takeFilter);
    dialog.setProxyModel(this);
}

void ExecutableFiles::sort(int column, Qt::SortOrder order)
{
    if (sourceModel())
        sourceModel()->sort(column, order);
}

bool ExecutableFiles::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const auto *files = qobject_cast<const QFileSystemModel *>(sourceModel());
    if (!m_programsOnly || !files)
        return true;
    const QFileInfo file = files->fileInfo(files->index(row, 0, parent));
    return file.isDir() || file.isExecutable();
}

} // namespace ardiphon
