#pragma once

#include <QString>

namespace ardiphon {

/// Where the program writes files of its own: \a programFolder, the executable's, or where that
/// is read-only the program's folder among the user's data, which is made if need be. Without a
/// closing "/".
QString writableProgramFolder(const QString &programFolder);

} // namespace ardiphon
