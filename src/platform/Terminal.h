#pragma once

#include "platform/ProgramCommand.h"

namespace ardiphon {

/// Opens a terminal window in \a directory that runs independently of this program. False when none
/// can be started.
[[nodiscard]] bool startTerminal(const QString &directory);

/// Starts a program in a terminal window that stays open after its end until a key is pressed, and
/// that runs independently of this program. Closing the window ends the program with all that it
/// has started, and Ctrl+C stops it there. `ArdiphonConsole`, which does that, is looked for in
/// \a programFolder. \a reportTo: the name of the socket at which TerminalRun listens; "" for none.
/// False when there is no `ArdiphonConsole`, or no terminal on this system.
[[nodiscard]] bool startConsole(const ProgramCommand &command, const QString &programFolder,
                                const QString &reportTo = {});

/// The same, but without a terminal the program is started too, and what it prints is not seen.
/// False when nothing could be started.
[[nodiscard]] bool startInTerminal(const ProgramCommand &command, const QString &programFolder);

} // namespace ardiphon
