#pragma once

#include <QString>

namespace ardiphon {

/// Makes a read-only file writable for its owner; nothing else of its mode changes. Anything but a
/// regular file, and a file of someone else, is left as it is.
void ClearFileAttributes(const QString &path);

} // namespace ardiphon
