#pragma once

#include <QString>

namespace ardiphon {

struct ConfigurationBlock;
class SettingsStore;

/// How many files the list keeps: entries 1 to this of `RecentFiles`.
inline constexpr int RecentFileCount = 4;

/// Reads the list from \a store into `RecentFiles`, as another running copy may have left it.
void ReadRecentFiles(ConfigurationBlock &config, SettingsStore &store);

/// Puts \a path, less the blanks around it, on top of the list; the oldest entry falls off. A path
/// that is in the list already, with exactly these letters, keeps its place. Leaves `RecentFiles`
/// as the store then holds it.
void UpdateRecentFiles(ConfigurationBlock &config, SettingsStore &store, const QString &path);

/// What a menu shows for \a path: its first two characters in brackets and the file's name, at
/// most 40 characters. "" for an empty entry.
QString recentFileText(const QString &path);

} // namespace ardiphon
