#pragma once

#include "platform/ProgramCommand.h"

namespace ardiphon {

/// \a text in double quotes, for use in a command text. A double quote within it is doubled, so
/// that splitCommandText gives back exactly \a text as one argument.
QString quoted(const QString &text);

/// The arguments of a command text, with no shell involved: blanks, tabs and line ends separate
/// them, double quotes hold them together, and two double quotes within quotes mean one. All other
/// characters are taken as they are. A quote that is never closed goes on to the end.
QStringList splitCommandText(const QString &commandText);

/// The command for a caller that has its arguments as one text, \a parameters, to show it or to add
/// what a user has typed. Nothing else in the program splits a text: everything that starts a
/// program takes the list.
ProgramCommand commandOf(const QString &executable, const QString &parameters,
                         const QString &directory);

} // namespace ardiphon
