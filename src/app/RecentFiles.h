#pragma once

#include <QString>

namespace ardiphon {

struct ConfigurationBlock;
class SettingsStore;

/// How many files the list has: entries 1 to this of `RecentFiles`.
inline constexpr int RecentFileCount = 4;

/// Reads the list from \a store into `RecentFiles`, as another running copy may have left it.
void ReadRecentFiles(ConfigurationBlock &config, SettingsStore &store);

/// Puts \a path, without blanks at its ends, at the top of the list; the oldest entry is dropped. A
/// path that is in the list already, with exactly the same letters, keeps its place. Afterwards
/// `RecentFiles` is as in the store.
void UpdateRecentFiles(ConfigurationBlock &config, SettingsStore &store, const QString &path);

/// What a menu shows for \a path: its first two characters in brackets and the file's name, at
/// most 40 characters. "" for an empty entry.
QString recentFileText(const QString &path);

} // namespace ardiphon
