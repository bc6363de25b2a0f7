#pragma once

#include "platform/Result.h"

#include <QString>

#include <array>

namespace ardiphon {

inline constexpr int BookmarkSlots = 15;

/// The text of a slot that is free.
inline const QString FreeSlotText = QStringLiteral("...");

/// One slot of a document's bookmarks.
struct Bookmark
{
    QString text = FreeSlotText; ///< as the tree shows it
    int line = -1;               ///< from 1; -1 for a free slot

    bool isFree() const { return text == FreeSlotText; }
    friend bool operator==(const Bookmark &, const Bookmark &) = default;
};

/// Slot 1 stands at index 0.
using BookmarkSet = std::array<Bookmark, BookmarkSlots>;

/// The side file of a document: its path up to its last ".", and \a extension ("bkm", "bko",
/// "bks"). A path without a "." gives the bare extension.
QString bookmarkFilePath(const QString &documentPath, const QString &extension);

/// What the tree shows of a bookmark on a line with that text: "-> " and its beginning, which has
/// no blanks around it; "-> " alone for a line that begins with nothing else.
QString bookmarkText(const QString &lineText);

/// Writes the side file, wholly or not at all, or removes it when every slot is free. Gives whether
/// a file was written.
Result<bool> writeBookmarkFile(const QString &path, const BookmarkSet &bookmarks);

/// Reads a side file. A failure when there is none, or it cannot be read; a file that is cut short
/// or holds no numbers gives slots with blank texts or without a line.
Result<BookmarkSet> readBookmarkFile(const QString &path);

} // namespace ardiphon
