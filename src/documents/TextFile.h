#pragma once

#include "platform/Result.h"

#include <QString>

namespace ardiphon {

/// The text of the file at \a path, with CR LF line ends. A file that is not UTF-8 is read as
/// Latin-1, as in an editor.
Result<QString> readTextFile(const QString &path);

/// Writes \a text in UTF-8, wholly or not at all.
Result<> writeTextFile(const QString &path, const QString &text);

} // namespace ardiphon
