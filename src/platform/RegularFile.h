#pragma once

#include "platform/FileHandle.h"

#include <QString>

#include <optional>

class QFile;

namespace ardiphon {

struct FileFailure;

// What is no regular file is never waited for: neither the opening of a FIFO nor the reading of a
// device comes to an end by itself. Whatever the program reads by a name that comes from outside is
// opened here.

/// Opens the regular file at \a path, given in the system's own bytes, for reading. Not valid, and
/// \a why tells the reason, where there is none.
FileHandle openRegularFile(const QByteArray &path, FileFailure &why);
/// Opens the closed \a file, by its own name, for reading. False when it is no regular file.
bool openRegularFile(QFile &file);
/// The first bytes of the regular file at \a path, no more than \a limit; nothing when there is no
/// such file or reading fails.
std::optional<QByteArray> readRegularFile(const QString &path, qint64 limit);

} // namespace ardiphon
