#include "app/RecentFiles.h"

#include "app/ConfigurationBlock.h"
#include "app/modRegistry.h"

namespace ardiphon {

namespace {

constexpr int LongestText = 40;

QString valueName(int entry) { return QStringLiteral("File%1").arg(entry); }

bool isListed(const ConfigurationBlock &config, const QString &path)
{
    for (std::size_t entry = 1; entry <= RecentFileCount; ++entry)
        if (config.RecentFiles[entry].trimmed() == path)
            return true;
    return false;
}

} // namespace

void ReadRecentFiles(ConfigurationBlock &config, SettingsStore &store)
{
    for (int entry = 1; entry <= RecentFileCount; ++entry)
        config.RecentFiles[std::size_t(entry)] =
            ReadRegistryString(store, registry::RecentFilesKey, valueName(entry));
}

void UpdateRecentFiles(ConfigurationBlock &config, SettingsStore &store, const QString &path)
{
    ReadRecentFiles(config, store);
    const QString newest = path.trimmed();
    if (newest.isEmpty() || isListed(config, newest))
        return;
    QList<std::pair<QString, QString>> values{{valueName(1), newest}};
    for (int entry = 2; entry <= RecentFileCount; ++entry)
        values.append({valueName(entry), config.RecentFiles[std::size_t(entry - 1)]});
    WriteRegistryStrings(store, registry::RecentFilesKey, values);
    ReadRecentFiles(config, store);
}

QString recentFileText(const QString &path)
{
    const QString trimmed = path.trimmed();
    if (trimmed.isEmpty())
        return {};
    const QString name = trimmed.mid(trimmed.lastIndexOf(u'/') + 1);
    const QString text = u'[' + trimmed.left(2) + QStringLiteral("] ") + name;
    return text.left(LongestText);
}

} // namespace ardiphon
