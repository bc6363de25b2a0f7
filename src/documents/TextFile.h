#pragma once

#include <QString>

#include <optional>

namespace ardiphon {

class Dialogs;

/// The text of the file at \a path, with CR LF line ends. Nothing when it cannot be read, which the
/// user is told.
std::optional<QString> readTextFile(const QString &path, Dialogs &dialogs);

/// Writes \a text in UTF-8, wholly or not at all. False when nothing was written, which the user is
/// told.
bool writeTextFile(const QString &path, const QString &text, Dialogs &dialogs);

} // namespace ardiphon
