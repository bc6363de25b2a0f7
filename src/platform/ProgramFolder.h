#pragma once

#include <QString>

namespace ardiphon {

/// The folder for files that the program writes: \a programFolder, the executable's, or where that
/// is read-only the program's folder in the user's data folder, which is made if necessary. Without
/// a closing "/".
QString writableProgramFolder(const QString &programFolder);

/// The path of a file in the program's folder, which may end in a "/" or not.
QString programPath(const QString &programFolder, const QString &name);

} // namespace ardiphon
