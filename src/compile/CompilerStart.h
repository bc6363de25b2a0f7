#pragma once

#include <QString>

namespace ardiphon {

/// Starts a compiler that goes on by itself, in its own folder, and with its environment set so
/// that what it writes by a relative name lands beside \a document. \a parameters are the text of
/// its arguments, as commandOf takes it. It runs in a terminal, as startInTerminal has it with
/// \a programFolder. Whether it starts is nobody's concern.
void startCompiler(const QString &compiler, const QString &parameters, const QString &document,
                   const QString &programFolder);

} // namespace ardiphon
