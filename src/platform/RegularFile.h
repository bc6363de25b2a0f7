#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QString>

class QFile;

namespace ardiphon {

// The program never waits for anything but a regular file, as opening a FIFO or reading a device
// may never end. Whatever the program reads by a name that comes from outside is opened here.

/// Opens the closed \a file, by its own name, for reading. A failure when it is not a regular file.
Result<> openRegularFile(QFile &file);
/// The first bytes of the regular file at \a path, no more than \a limit; a failure when there is
/// no such file or reading fails.
Result<QByteArray> readRegularFile(const QString &path, qint64 limit);

} // namespace ardiphon
