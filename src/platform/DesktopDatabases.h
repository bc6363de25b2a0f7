#pragma once

#include <QString>

namespace ardiphon {

/// Lets the desktop take up what changed among the file types, desktop entries and icons below
/// \a dataFolder, which is the user's. Waits for the updaters, half a minute at most. Gives what
/// failed, as a sentence, when there are file types and the updater that reads them cannot be run,
/// else ""; whether an updater liked what it found is not asked.
[[nodiscard]] QString updateDesktopDatabases(const QString &dataFolder);

} // namespace ardiphon
