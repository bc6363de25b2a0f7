#include "preferences/ui/FolderTree.h"

#include <QDir>
#include <QHeaderView>
#include <QStyle>

namespace ardiphon {

namespace {

constexpr int PathRole = Qt::UserRole;
constexpr int ReadRole = Qt::UserRole + 1;

} // namespace

FolderTree::FolderTree(QWidget *parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setIndentation(14);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    for (const QFileInfo &drive : QDir::drives())
        addFolder(invisibleRootItem(), drive.absoluteFilePath(), drive.absoluteFilePath());
    connect(this, &QTreeWidget::itemExpanded, this, &FolderTree::readFolder);
    connect(this, &QTreeWidget::currentItemChanged, this, [this] { emit pathChanged(path()); });
}

QString FolderTree::path() const
{
    return currentItem() ? currentItem()->data(0, PathRole).toString() : QString();
}

bool FolderTree::setPath(const QString &path)
{
    if (path.isEmpty() || !QFileInfo(path).isDir())
        return false;
    const QString wanted = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = topLevelItem(i);
        const QString drive = item->data(0, PathRole).toString();
        if (!wanted.startsWith(drive))
            continue;
        for (const QString &name : wanted.mid(drive.size()).split(u'/', Qt::SkipEmptyParts))
            item = childNamed(item, name);
        setCurrentItem(item);
        item->setExpanded(true);
        scrollToItem(item, QAbstractItemView::PositionAtCenter);
        return true;
    }
    return false;
}

void FolderTree::showEvent(QShowEvent *event)
{
    QTreeWidget::showEvent(event);
    if (currentItem()) // only now the size is known
        scrollToItem(currentItem(), QAbstractItemView::PositionAtCenter);
}

void FolderTree::addFolder(QTreeWidgetItem *parent, const QString &path, const QString &name)
{
    auto *const item = new QTreeWidgetItem(parent, {name});
    item->setData(0, PathRole, path);
    item->setIcon(0, style()->standardIcon(QStyle::SP_DirIcon));
    item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
}

void FolderTree::readFolder(QTreeWidgetItem *item)
{
    if (item->data(0, ReadRole).toBool())
        return;
    item->setData(0, ReadRole, true);
    const QDir folder(item->data(0, PathRole).toString());
    const QStringList names =
        folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
    for (const QString &name : names)
        addFolder(item, folder.absoluteFilePath(name), name);
    item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
}

QTreeWidgetItem *FolderTree::childNamed(QTreeWidgetItem *parent, const QString &name)
{
    readFolder(parent);
    for (int i = 0; i < parent->childCount(); ++i)
        if (parent->child(i)->text(0) == name)
            return parent->child(i);
    // A hidden folder is not offered, but it may be the one that was chosen elsewhere.
    addFolder(parent, QDir(parent->data(0, PathRole).toString()).absoluteFilePath(name), name);
    return parent->child(parent->childCount() - 1);
}

} // namespace ardiphon
