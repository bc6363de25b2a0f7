#pragma once

#include <QString>

namespace ardiphon {

/// Opens a terminal window in \a directory, which goes on by itself. False when none can be
/// started.
bool startTerminal(const QString &directory);

/// Starts a program in a terminal window that stays open at its end until a key is pressed, and
/// that goes on by itself. \a file and \a parameters as for StartDetached; the program begins in
/// \a directory. No shell is involved.
///
/// `ArdiphonConsole`, which keeps the window open, is looked for in \a programFolder. Without it or
/// without a terminal on this system the program is started all the same, and what it prints is not
/// seen. False when nothing could be started.
bool startInTerminal(const QString &file, const QString &parameters, const QString &directory,
                     const QString &programFolder);

} // namespace ardiphon
