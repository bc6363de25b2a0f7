#pragma once

#include <QStringList>

namespace ardiphon {

/// Turns \a filter, pairs "description|patterns" joined by "|" with the patterns joined by ";",
/// into name filters "description (pattern pattern)". A description without patterns is left out.
/// Some patterns mean here what has other names on this system:
///   "*.*"    every file, the ones without a dot too
///   "*.exe"  every file, of which programFilters tells to show the programs only
///   "*.hlp"  manuals, which are HTML pages too
///   "*.htm"  HTML pages, whichever way their ending is spelled
QStringList nameFilters(const QString &filter);

/// Those of the name filters that ask for programs. What makes a file one is not its name.
QStringList programFilters(const QString &filter);

} // namespace ardiphon
