#pragma once

#include <QString>

namespace ardiphon {

/// Makes a read-only file writable for its owner; nothing else of its mode changes. What is no
/// plain file, or belongs to someone else, is left alone.
void ClearFileAttributes(const QString &path);

} // namespace ardiphon
