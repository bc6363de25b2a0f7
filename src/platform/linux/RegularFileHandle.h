#pragma once

#include "platform/Result.h"
#include "platform/linux/FileHandle.h"

namespace ardiphon {

/// Opens the regular file at \a path, given in the system's own bytes, for reading.
Result<FileHandle> openRegularFile(const QByteArray &path);

} // namespace ardiphon
