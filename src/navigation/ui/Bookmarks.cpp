#include "navigation/ui/Bookmarks.h"

#include "language/editor/LEditOCX.h"
#include "platform/Dialogs.h"

#include <QTreeWidget>

#include <utility>

namespace ardiphon {

namespace {

constexpr int NoSlot = 0; // slots are counted from 1

} // namespace

Bookmarks::Bookmarks(LEditOCX &editor, QTreeWidget &tree, const QString &extension,
                     Dialogs &dialogs)
    : QObject(&editor), m_editor(editor), m_tree(tree), m_extension(extension), m_dialogs(dialogs)
{
    for (int slot = 1; slot <= BookmarkSlots; ++slot) {
        auto *node = new QTreeWidgetItem(&m_tree, {FreeSlotText});
        node->setForeground(0, QColor(0, 0, 255));
    }
    connect(&m_tree, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem *node) { visit(m_tree.indexOfTopLevelItem(node) + 1); });
}

void Bookmarks::setChanged(bool changed)
{
    if (std::exchange(m_changed, changed) != changed)
        emit this->changed(changed);
}

QString Bookmarks::textOf(int slot) const { return m_tree.topLevelItem(slot - 1)->text(0); }

void Bookmarks::setText(int slot, const QString &text)
{
    m_tree.topLevelItem(slot - 1)->setText(0, text);
}

/// A slot is free when the tree shows it so; the editor is not asked.
int Bookmarks::firstFreeSlot() const
{
    for (int slot = 1; slot <= BookmarkSlots; ++slot)
        if (textOf(slot) == FreeSlotText)
            return slot;
    return NoSlot;
}

int Bookmarks::slotOnLine(int line) const
{
    for (int slot = 1; slot <= BookmarkSlots; ++slot)
        if (m_editor.GetBookmarkLine(slot) == line)
            return slot;
    return NoSlot;
}

void Bookmarks::occupy(int slot, int line, const QString &text)
{
    m_editor.SetBookmarkLine(slot, line);
    m_editor.SetBookmarkBackColor(slot, Color::rgb(240, 0, 0));
    m_editor.SetBookmarkForeColor(slot, Color::rgb(255, 255, 255));
    setText(slot, text);
}

void Bookmarks::release(int slot)
{
    m_editor.ClearBookmarkBackColor(slot);
    m_editor.ClearBookmarkForeColor(slot);
    m_editor.SetBookmarkLine(slot, -1);
    setText(slot, FreeSlotText);
}

void Bookmarks::InsertBookmark()
{
    m_editor.GetSelection();
    const int line = m_editor.SelStartLine;
    const int slot = firstFreeSlot();
    // A full set is reported first, so bookmarks cannot be toggled off line by line then.
    if (slot == NoSlot) {
        m_dialogs.message({QStringLiteral("You can insert max 15 Bookmarks!"),
                           QStringLiteral("Bookmark informations"), MessageIcon::Information});
        return;
    }
    if (slotOnLine(line) != NoSlot) {
        RemoveBookmark();
        return;
    }
    occupy(slot, line, bookmarkText(m_editor.LineText(line)));
    setChanged(true);
}

void Bookmarks::RemoveBookmark()
{
    m_editor.GetSelection();
    const int line = m_editor.SelStartLine;
    for (int slot = slotOnLine(line); slot != NoSlot; slot = slotOnLine(line)) {
        release(slot);
        setChanged(true);
    }
}

void Bookmarks::RemoveAllBookmarks()
{
    clear();
    setChanged(true);
}

void Bookmarks::clear()
{
    for (int slot = 1; slot <= BookmarkSlots; ++slot)
        release(slot);
}

/// "" where the document has no side file: it has no file itself, or its name is that of the side
/// file.
QString Bookmarks::sideFileOf(const QString &documentName) const
{
    if (documentName.isEmpty() || documentName == QLatin1String("[Untitled]"))
        return {};
    const QString path = bookmarkFilePath(documentName, m_extension);
    return path == documentName ? QString() : path;
}

void Bookmarks::save(const QString &documentName, SideFileFailure failure)
{
    const QString path = sideFileOf(documentName);
    if (path.isEmpty())
        return;
    BookmarkSet bookmarks;
    for (int slot = 1; slot <= BookmarkSlots; ++slot)
        bookmarks[std::size_t(slot - 1)] = {textOf(slot), m_editor.GetBookmarkLine(slot)};
    const Result<bool> written = writeBookmarkFile(path, bookmarks);
    if (written && *written)
        setChanged(false);
    if (written)
        m_reportedFile.clear();
    else if (m_changed && failure == SideFileFailure::Reported &&
             std::exchange(m_reportedFile, path) != path)
        m_dialogs.message({notSavedText(path, written.failure())});
}

void Bookmarks::saveIfChanged(const QString &documentName, SideFileFailure failure)
{
    if (m_changed)
        save(documentName, failure);
}

void Bookmarks::load(const QString &documentName)
{
    const QString path = sideFileOf(documentName);
    if (path.isEmpty())
        return;
    const auto bookmarks = readBookmarkFile(path);
    if (!bookmarks) // a document without a side file has no bookmarks
        return;
    for (int slot = 1; slot <= BookmarkSlots; ++slot) {
        const Bookmark &bookmark = (*bookmarks)[std::size_t(slot - 1)];
        if (!bookmark.isFree())
            occupy(slot, bookmark.line, bookmark.text);
    }
    setChanged(false);
}

void Bookmarks::visit(int slot)
{
    if (textOf(slot) != FreeSlotText) {
        m_editor.SelStartLine = m_editor.SelEndLine = m_editor.GetBookmarkLine(slot);
        m_editor.SelEndColumn = m_editor.SelStartColumn; // a search leaves its match in the record
        m_editor.SetSelection();
    }
    emit visited();
}

} // namespace ardiphon
