#pragma once

#include <QString>
#include <QStringList>

namespace ardiphon {

/// \a text in double quotes, for use in a command text. A double quote within it is doubled, so
/// that splitCommandText gives back exactly \a text as one argument.
QString quoted(const QString &text);

/// The arguments of a command text, with no shell involved: blanks, tabs and line ends separate
/// them, double quotes hold them together, and two double quotes within quotes stand for one. All
/// other characters mean themselves. A quote that is never closed reaches to the end.
QStringList splitCommandText(const QString &commandText);

} // namespace ardiphon
