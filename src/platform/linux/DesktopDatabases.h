#pragma once

#include <QString>

namespace ardiphon {

/// Has the desktop read what changed among the file types, desktop entries and icons below
/// \a dataFolder, the user's data folder. Waits for the updaters, half a minute at most. Returns a
/// sentence that says what failed when there are file types and the updater that reads them cannot
/// be run, else ""; the exit codes of the updaters are ignored.
[[nodiscard]] QString updateDesktopDatabases(const QString &dataFolder);

} // namespace ardiphon
