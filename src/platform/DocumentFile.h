#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QString>

namespace ardiphon {

/// The largest document in bytes; a larger file cannot be read.
inline constexpr qsizetype LargestDocument = qsizetype(1) << 29;

/// All bytes of a regular file. A failure when it cannot be read to its end, is larger than
/// LargestDocument, or is a folder, a device, a FIFO or a socket.
Result<QByteArray> readDocumentFile(const QString &path);

/// Makes \a bytes the content of the file at \a path, wholly or not at all, and flushed to the
/// disk.
///
/// A file that exists keeps its mode, owner, group, extended attributes and links, symbolic and
/// hard ones. A failure, with the old content in place, when there is anything but a regular file,
/// when the file may not be written, or when a step fails. If the program is killed meanwhile, the
/// file holds the old bytes or the new ones. Where it has to be written in place (it has several
/// hard links, or an owner or attributes that a new file would not get, its folder or its disk
/// takes no new file, or it cannot be replaced) the old bytes are kept in a file beside it or in
/// the temporary folder until the new ones are safe, and stay there when they could not be put back
/// either.
Result<> writeDocumentFile(const QString &path, const QByteArray &bytes);

/// Removes the file at \a path, if there is one; a folder stays. A failure when the file is still
/// there.
Result<> removeDocumentFile(const QString &path);

} // namespace ardiphon
