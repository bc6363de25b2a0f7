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

/// The slots of a document; slot 1 is at index 0.
using BookmarkSet = std::array<Bookmark, BookmarkSlots>;

/// The side file of a document: its path up to its last ".", and \a extension ("bkm", "bko",
/// "bks"). For a path without a "." it is the extension alone.
QString bookmarkFilePath(const QString &documentPath, const QString &extension);

/// What the tree shows for a bookmark on a line with that text: "-> " and the beginning of the text
/// without blanks at its ends; "-> " alone where that is blank.
QString bookmarkText(const QString &lineText);

/// Writes the side file, wholly or not at all, or removes it when every slot is free. Returns
/// whether a file was written.
Result<bool> writeBookmarkFile(const QString &path, const BookmarkSet &bookmarks);

/// Reads a side file. A failure when there is none, or it cannot be read; a file that is too short
/// or has no numbers gives slots with blank texts or without a line.
Result<BookmarkSet> readBookmarkFile(const QString &path);

} // namespace ardiphon
