#pragma once

#include <QString>

namespace ardiphon {

/// Starts a compiler that runs independently of this program, in its own folder, and with an
/// environment by which files with relative names are written beside \a document. \a parameters are
/// its arguments as one text, as for commandOf(). It runs in a terminal, as by startInTerminal()
/// with \a programFolder. A failure is not reported.
void startCompiler(const QString &compiler, const QString &parameters, const QString &document,
                   const QString &programFolder);

} // namespace ardiphon
