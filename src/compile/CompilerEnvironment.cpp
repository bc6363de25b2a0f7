#include "compile/CompilerEnvironment.h"

#include "platform/RunFolder.h"

#include <QFile>

#include <tuple>

namespace ardiphon {

namespace {

const QString SoundFolder = QStringLiteral("SFDIR");

/// The categories that `LC_ALL` overrides, apart from the messages.
constexpr const char *OtherCategories[] = {
    "LC_CTYPE", "LC_NUMERIC", "LC_TIME",      "LC_COLLATE",     "LC_MONETARY",      "LC_PAPER",
    "LC_NAME",  "LC_ADDRESS", "LC_TELEPHONE", "LC_MEASUREMENT", "LC_IDENTIFICATION"};

} // namespace

std::optional<QString> environmentVariable(const QString &name)
{
    const QByteArray key = name.toLatin1();
    if (!qEnvironmentVariableIsSet(key.constData()))
        return std::nullopt;
    return qEnvironmentVariable(key.constData());
}

QList<EnvironmentChange> compilerEnvironment(const QString &documentFolder,
                                             const EnvironmentLookup &lookup)
{
    QList<EnvironmentChange> changes{{QStringLiteral("LC_MESSAGES"), QStringLiteral("C")}};
    const QString all = lookup(QStringLiteral("LC_ALL")).value_or(QString());
    if (!all.isEmpty()) {
        // LC_ALL would override LC_MESSAGES, so its value goes to the variables of the other
        // categories.
        changes.append({QStringLiteral("LC_ALL"), std::nullopt});
        for (const char *category : OtherCategories)
            changes.append({QLatin1String(category), std::nullopt});
        changes.append({QStringLiteral("LANG"), all});
    }
    if (lookup(SoundFolder).value_or(QString()).isEmpty())
        changes.append({SoundFolder, documentFolder});
    return changes;
}

QString soundFolder(const QString &folder, const QString &rootPath)
{
    if (!folder.contains(u':') && !folder.contains(u';'))
        return folder;
    std::ignore = restoreRunFolder(rootPath); // without it no link can be made
    const QString link = rootPath + QLatin1String("sounds");
    QFile::remove(link);
    return QFile::link(folder, link) ? link : folder;
}

QString outputFolder(const QString &documentFolder, const EnvironmentLookup &lookup)
{
    const QString chosen = lookup(SoundFolder).value_or(QString());
    return chosen.isEmpty() ? documentFolder : chosen;
}

} // namespace ardiphon
