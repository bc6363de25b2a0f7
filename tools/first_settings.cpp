// Does for a fresh copy of the program what an installer does for an installed one: in the user's
// settings file it names the Csound compiler and manual that are on this machine, and has the
// program ask its first question. What is set already stays as it is. For a user who has never had
// the program it also turns on the colours by meaning.
//
//   first_settings [FOLDER]     where the first file dialog begins

#include "app/modRegistry.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

using namespace ardiphon;

void setWhereUnset(SettingsStore &store, const QString &key, const QString &name,
                   const QString &value)
{
    if (!value.isEmpty() && ReadRegistryString(store, key, name).isEmpty())
        WriteRegistryString(store, key, name, value);
}

QString manual()
{
    const QString path = QStringLiteral("/usr/share/doc/csound-doc/html/index.html");
    return QFileInfo::exists(path) ? path : QString();
}

/// Whoever had the program before keeps what it has done so far.
bool isNewUser(SettingsStore &store)
{
    return ReadRegistryString(store, registry::InstallPathKey, QStringLiteral("First")).isEmpty();
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QString firstFolder = QCoreApplication::arguments().value(1);
    SettingsStore store(SettingsStore::userFilePath());
    if (isNewUser(store))
        setWhereUnset(store, registry::StudioKey, QStringLiteral("ColoursByMeaning"),
                      QStringLiteral("1"));
    setWhereUnset(store, registry::SettingsKey, QStringLiteral("FileCSound"),
                  QStandardPaths::findExecutable(QStringLiteral("csound")));
    setWhereUnset(store, registry::SettingsKey, QStringLiteral("FileGuida"), manual());
    setWhereUnset(store, registry::SettingsKey, QStringLiteral("WorkingDirectory"), firstFolder);
    setWhereUnset(store, registry::InstallPathKey, QStringLiteral("First"), QStringLiteral("1"));
    return 0;
}
