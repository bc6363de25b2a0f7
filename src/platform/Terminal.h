#pragma once

#include "platform/ChildEnvironment.h"

#include <QString>

namespace ardiphon {

/// Opens a terminal window in \a directory, which goes on by itself. False when none can be
/// started.
bool startTerminal(const QString &directory);

/// A program that is to run in a terminal window. No shell is involved.
struct ConsoleStart
{
    QString file;       ///< as for StartDetached
    QString parameters; ///< as for StartDetached
    QString directory;  ///< where it begins; "" is the current one
    QList<EnvironmentChange> environment = {};
    QString reportTo = {}; ///< the name of the socket at which TerminalRun listens; "" for nobody
};

/// Starts a program in a terminal window that stays open at its end until a key is pressed, and
/// that goes on by itself. Closing the window ends the program with all that it has started, and
/// Ctrl+C stops it there. `ArdiphonConsole`, which sees to that, is looked for in \a programFolder.
/// False when there is none, or no terminal on this system.
bool startConsole(const ConsoleStart &start, const QString &programFolder);

/// The same; but without a terminal the program is started all the same, and what it prints is not
/// seen. False when nothing could be started.
bool startInTerminal(const ConsoleStart &start, const QString &programFolder);

} // namespace ardiphon
