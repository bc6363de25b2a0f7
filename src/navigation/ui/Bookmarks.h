#pragma once

#include "navigation/BookmarkFile.h"

#include <QObject>

class QTreeWidget;

namespace ardiphon {

class Dialogs;
class LEditOCX;

/// Whether a message says that the side file cannot be written: Silent where the save of the
/// document itself has failed, which has its own message.
enum class SideFileFailure { Reported, Silent };

/// The bookmarks of one document: the editor holds and draws their lines, a tree shows their texts,
/// one node for each slot, and a side file stores them.
class Bookmarks : public QObject
{
    Q_OBJECT

public:
    /// Fills \a tree with a node for each slot. \a extension: that of the side file.
    Bookmarks(LEditOCX &editor, QTreeWidget &tree, const QString &extension, Dialogs &dialogs);

    /// Puts a bookmark on the caret's line, or removes the one that is there.
    void InsertBookmark();
    /// Removes the bookmark of the caret's line.
    void RemoveBookmark();
    void RemoveAllBookmarks();

    /// Empties the slots; the side file and the changed flag stay as they are.
    void clear();
    /// Writes the side file of the document of that name; does nothing for one without a file. That
    /// changed bookmarks could not be written is reported once for each document.
    void save(const QString &documentName, SideFileFailure failure = SideFileFailure::Reported);
    void saveIfChanged(const QString &documentName,
                       SideFileFailure failure = SideFileFailure::Reported);
    /// Whether the side file is to be written.
    bool areChanged() const { return m_changed; }
    /// Clears the changed flag: the side file need not be written.
    void countAsUnchanged() { setChanged(false); }
    /// Reads the slots from the side file, if there is one, and then clears the changed flag.
    void load(const QString &documentName);

signals:
    /// The changed flag changed.
    void changed(bool now);
    /// A node was clicked, and the caret is on its line if it has one.
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
    QString m_reportedFile; ///< the side file for which a message has said so
};

} // namespace ardiphon
