#pragma once

#include "navigation/BookmarkFile.h"

#include <QObject>

class QTreeWidget;

namespace ardiphon {

class Dialogs;
class LEditOCX;

/// Whether the user is told when the side file cannot be written: not where it fails with the file
/// beside it, which tells already.
enum class SideFileFailure { Reported, Silent };

/// The bookmarks of one document: the editor holds and draws their lines, a tree shows their texts,
/// one node a slot, and a side file keeps them.
class Bookmarks : public QObject
{
    Q_OBJECT

public:
    /// Fills \a tree with a node for each slot. \a extension: that of the side file.
    Bookmarks(LEditOCX &editor, QTreeWidget &tree, const QString &extension, Dialogs &dialogs);

    /// Puts a bookmark on the caret's line, or takes the one away that is there.
    void InsertBookmark();
    /// Takes the bookmark of the caret's line away.
    void RemoveBookmark();
    void RemoveAllBookmarks();

    /// Empties the slots; neither the side file nor the changed flag follows.
    void clear();
    /// Writes the side file of the document of that name. Nothing for one without a file. That it
    /// could not take changed bookmarks is told once for each document.
    void save(const QString &documentName, SideFileFailure failure = SideFileFailure::Reported);
    void saveIfChanged(const QString &documentName,
                       SideFileFailure failure = SideFileFailure::Reported);
    /// Whether the side file is due.
    bool areChanged() const { return m_changed; }
    /// Clears the changed flag: the side file is not due.
    void countAsUnchanged() { setChanged(false); }
    /// Takes the slots from the side file, if there is one, and then clears the changed flag.
    void load(const QString &documentName);

signals:
    /// The changed flag changed.
    void changed(bool now);
    /// A node was clicked, and the caret stands on its line if it has one.
    void visited();

private:
    QString textOf(int slot) const;
    void setText(int slot, const QString &text);
    int firstFreeSlot() const;
    int slotOnLine(int line) const;
    void occupy(int slot, int line, const QString &text);
    void release(int slot);
    void visit(int slot);
    void setChanged(bool changed);
    QString sideFileOf(const QString &documentName) const;

    LEditOCX &m_editor;
    QTreeWidget &m_tree;
    const QString m_extension;
    Dialogs &m_dialogs;
    bool m_changed = false;
    QString m_reportedFile; ///< the side file that could not be written, as the user was told
};

} // namespace ardiphon
