#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QString>

namespace ardiphon {

/// No document is larger; one that is cannot be read.
inline constexpr qsizetype LargestDocument = qsizetype(1) << 29;

/// All bytes of a regular file. A failure when it cannot be read to its end, is larger than
/// LargestDocument, or is a folder, a device, a FIFO or a socket.
Result<QByteArray> readDocumentFile(const QString &path);

/// Makes \a bytes the content of the file at \a path, wholly or not at all, and flushed to the
/// disk.
///
/// A file that exists keeps its mode, owner, group, extended attributes and links, symbolic and
/// hard ones. A failure, with the old content in place, when anything but a regular file stands
/// there, when the file may not be written, or when a step fails. Should the program be killed in
/// the middle, the file holds the old bytes or the new ones; where it has to be written in place
/// (it has several hard links, or an owner or attributes that a new file would not get, its folder
/// or its disk takes no new file, or it cannot be replaced) the old bytes lie in a file beside it
/// or in the temporary folder until the new ones are safe, and stay there when they could not even
/// be put back.
Result<> writeDocumentFile(const QString &path, const QByteArray &bytes);

/// Sees to it that no file stands at \a path; a folder stays. A failure when one still does.
Result<> removeDocumentFile(const QString &path);

} // namespace ardiphon
