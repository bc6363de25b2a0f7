#include "preferences/ui/FontList.h"

#include <QFontDatabase>
#include <QStringListModel>

namespace ardiphon {

FontList::FontList(QWidget *parent) : QListView(parent)
{
    QStringList names = QFontDatabase::families();
    names.removeAll(QString());
    setModel(new QStringListModel(names, this));
    // Names are drawn in the window's own font: some fonts have no letters for their name.
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (const QString name = selectedName(); !name.isEmpty())
            emit chosen(name);
    });
}

void FontList::select(const QString &name)
{
    for (int row = 0; row < model()->rowCount(); ++row) {
        const QModelIndex entry = model()->index(row, 0);
        if (entry.data().toString().trimmed() == name.trimmed())
            return setCurrentIndex(entry);
    }
    setCurrentIndex({});
}

QString FontList::selectedName() const
{
    const QModelIndexList selected = selectedIndexes();
    return selected.isEmpty() ? QString() : selected.constFirst().data().toString();
}

} // namespace ardiphon
