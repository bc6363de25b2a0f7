#pragma once

#include <QTreeWidget>

namespace ardiphon {

/// The folders of the system as a tree; a folder's own are read when it is opened. The current
/// folder is the tree's path.
class FolderTree : public QTreeWidget
{
    Q_OBJECT

public:
    explicit FolderTree(QWidget *parent);

    /// The absolute path of the current folder.
    QString path() const;
    /// Makes \a path current and shows it. False, with nothing changed, when it is no folder.
    bool setPath(const QString &path);

signals:
    /// Another folder became current.
    void pathChanged(const QString &path);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void addFolder(QTreeWidgetItem *parent, const QString &path, const QString &name);
    void readFolder(QTreeWidgetItem *item);
    QTreeWidgetItem *childNamed(QTreeWidgetItem *parent, const QString &name);
};

} // namespace ardiphon
