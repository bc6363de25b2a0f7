#pragma once

#include <QString>

#include <optional>

namespace ardiphon {

/// The text of the file at \a path, with CR LF line ends. Nothing when it cannot be read.
std::optional<QString> readTextFile(const QString &path);

/// Writes \a text in UTF-8, wholly or not at all. False when nothing was written.
bool writeTextFile(const QString &path, const QString &text);

} // namespace ardiphon
