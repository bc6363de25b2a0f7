#include "platform/linux/DesktopDatabases.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>

#include <filesystem>

namespace ardiphon {

namespace {

constexpr int LongestRun = 30'000; // milliseconds

bool runToEnd(const QString &program, const QString &argument)
{
    const QString path = QStandardPaths::findExecutable(program);
    if (path.isEmpty())
        return false;
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(path, {argument});
    return process.waitForFinished(LongestRun);
}

/// Makes the icon cache older than its theme's folder, so that it is not used.
void outdateIconCache(const QString &theme)
{
    std::error_code ignored;
    std::filesystem::last_write_time(theme.toStdString(),
                                     std::filesystem::file_time_type::clock::now(), ignored);
}

} // namespace

QString updateDesktopDatabases(const QString &dataFolder)
{
    const QString types = dataFolder + QStringLiteral("/mime");
    const QString entries = dataFolder + QStringLiteral("/applications");
    outdateIconCache(dataFolder + QStringLiteral("/icons/hicolor"));
    if (QDir(entries).exists()) // a desktop without this updater reads the entries themselves
        runToEnd(QStringLiteral("update-desktop-database"), entries);
    const QString typeUpdater = QStringLiteral("update-mime-database");
    if (QDir(types + QStringLiteral("/packages")).exists() && !runToEnd(typeUpdater, types))
        return typeUpdater + QStringLiteral(" cannot be run.");
    return {};
}

} // namespace ardiphon
