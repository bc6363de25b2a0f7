#pragma once

#include "preferences/FolderReader.h"

#include <QIcon>
#include <QTimer>
#include <QTreeWidget>

#include <list>

namespace ardiphon {

/// The folders of the system as a tree; the subfolders of a folder are read when it is opened, for
/// a large one in slices between which the window handles events. Nothing opens more than one
/// folder at once. The current folder is the tree's path.
///
/// It does not use the toolkit's model of the file system, which takes 0.9 s for a folder of 20,000
/// folders, a quarter of a second of it without a break; this takes less than a third of that.
class FolderTree : public QTreeWidget
{
    Q_OBJECT

public:
    explicit FolderTree(QWidget *parent);

    /// The absolute path of the current folder.
    QString path() const;
    /// Makes \a path current and shows it. False, with nothing changed, when it is not a folder.
    bool setPath(const QString &path);

signals:
    /// Another folder became current.
    void pathChanged(const QString &path);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    /// A folder that is being read.
    struct Reading
    {
        QTreeWidgetItem *item;
        FolderReader reader;
    };

    QTreeWidgetItem *newFolder(const QString &path, const QString &name) const;
    void readFolder(QTreeWidgetItem *item);
    void readSlice();
    void fill(QTreeWidgetItem &item, const QStringList &names) const;
    bool isBeingRead(const QTreeWidgetItem &item) const;
    QTreeWidgetItem *childNamed(QTreeWidgetItem *parent, const QString &name);
    void centerCurrent();

    QIcon m_icon; ///< one for all items: making an icon takes longer than the rest of an item
    std::list<Reading> m_readings;
    QTimer m_slices;
    bool m_keepCentered = false; ///< until the user moves in the tree
};

} // namespace ardiphon
