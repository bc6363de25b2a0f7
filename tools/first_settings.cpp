// Does for a fresh copy of the program what an installer does for an installed one:
//
//   first_settings NAME VALUE [NAME VALUE]...
//
// gives each named setting its value in the user's settings file, unless it has one already.

#include "app/modRegistry.h"

#include <QCoreApplication>

#include <iostream>

int main(int argc, char *argv[])
{
    using namespace ardiphon;
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments().mid(1);
    if (arguments.size() % 2 != 0) {
        std::cerr << "usage: first_settings NAME VALUE [NAME VALUE]...\n";
        return 2;
    }
    SettingsStore store(SettingsStore::userFilePath());
    for (qsizetype i = 0; i < arguments.size(); i += 2) {
        const QString &name = arguments[i];
        if (ReadRegistryString(store, registry::SettingsKey, name).isEmpty())
            WriteRegistryString(store, registry::SettingsKey, name, arguments[i + 1]);
    }
    return 0;
}
