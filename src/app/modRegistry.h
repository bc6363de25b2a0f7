#pragma once

#include "platform/Result.h"

#include <QList>
#include <QSettings>
#include <QString>

#include <utility>

namespace ardiphon {

/// The file of all settings: named text values under hierarchical keys.
class SettingsStore
{
public:
    /// \a filePath: the file to use; it need not exist yet.
    explicit SettingsStore(const QString &filePath);

    /// `Ardiphon/settings.ini` in the user's configuration folder.
    static QString userFilePath();

    QSettings &file() { return m_file; }
    const QString &path() const { return m_path; }

    /// False where something other than a file is in its place, from which reading might never end:
    /// then all values are missing.
    bool isUsable() const;
    /// Whether the last write reached the disk, or why not.
    Result<> lastWrite() const;

private:
    const QString m_path;
    const bool m_isOpened;
    QSettings m_file;
};

/// The keys of the store. Names of keys and of values that differ only in case are the same.
namespace registry {
inline const QString SettingsKey = QStringLiteral("Software\\Ardiphon\\Settings\\");
inline const QString ColorsKey = QStringLiteral("Software\\Ardiphon\\Colors\\");
inline const QString StudioKey = QStringLiteral("Software\\Ardiphon\\Studio\\");
inline const QString WindowKey = QStringLiteral("Software\\Ardiphon\\Window\\");
inline const QString RecentFilesKey = QStringLiteral("Software\\Ardiphon\\RecentFiles");
inline const QString InstallPathKey = QStringLiteral("Software\\Ardiphon\\InstallPath\\");
} // namespace registry

/// The text of a value, up to its first NUL, as another running copy may have left it.
/// \a defaultText when the value is missing or is not a text (a list, a byte array, a number that
/// the file marks as such).
QString ReadRegistryString(SettingsStore &store, const QString &keyPath, const QString &valueName,
                           const QString &defaultText = {});

/// Creates or replaces a value, in whatever case its name was written before. A failed write leaves
/// the file as it was.
void WriteRegistryString(SettingsStore &store, const QString &keyPath, const QString &valueName,
                         const QString &text);

/// The same for several values of one key, each a name and a text. Either all are written or none.
void WriteRegistryStrings(SettingsStore &store, const QString &keyPath,
                          const QList<std::pair<QString, QString>> &values);

} // namespace ardiphon
