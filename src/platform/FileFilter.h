#pragma once

#include <QStringList>

namespace ardiphon {

/// Turns \a filter, pairs "description|patterns" joined by "|" with the patterns joined by ";",
/// into name filters "description (pattern pattern)". A description without patterns is left out.
/// Some patterns mean here what has other names on this system:
///   "*.*"    every file, also one without a dot
///   "*.exe"  every file; in filters that programFilters() returns only programs are shown
///   "*.hlp"  manuals, which are HTML pages too
///   "*.htm"  HTML pages with any spelling of their extension
QStringList nameFilters(const QString &filter);

/// The name filters that ask for programs: here a name does not show whether a file is one.
QStringList programFilters(const QString &filter);

} // namespace ardiphon
