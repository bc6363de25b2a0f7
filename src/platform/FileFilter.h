#pragma once

#include <QStringList>

namespace ardiphon {

/// Turns \a filter, pairs "description|patterns" joined by "|" with the patterns joined by ";",
/// into name filters "description (pattern pattern)". The pattern "*.*" means every file, the ones
/// without a dot too. A description without patterns is left out.
QStringList nameFilters(const QString &filter);

} // namespace ardiphon
