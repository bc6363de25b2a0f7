#include "associations/CsoundFiles.h"

#include "associations/FileAssociation.h"
#include "associations/OpenerEntry.h"
#include "platform/Dialogs.h"

#include <QCoreApplication>

#include <array>

namespace ardiphon {

namespace {

struct FileType
{
    const char *classKey;
    const char *extension;
    const char *description;
    const char *icon; ///< in the program's folder
};

constexpr std::array fileTypes{
    FileType{"CSoundCSD", ".csd", "CSound CSD file", "Icons/csd.svg"},
    FileType{"CSoundORC", ".orc", "CSound ORC file", "Icons/orc.svg"},
    FileType{"CSoundSCO", ".sco", "CSound SCO file", "Icons/sco.svg"},
};

const QString Executable = QStringLiteral("ArdiphonPro");

bool associate(const FileType &type)
{
    const QString icon =
        programPath(QCoreApplication::applicationDirPath(), QLatin1String(type.icon));
    return CreateFileAssociation(QLatin1String(type.classKey), QLatin1String(type.extension),
                                 QLatin1String(type.description), icon, Executable);
}

bool removeAssociation(const FileType &type)
{
    return RemoveFileAssociation(QLatin1String(type.classKey), QLatin1String(type.extension));
}

bool forEachType(bool (*step)(const FileType &))
{
    bool done = true;
    for (const FileType &type : fileTypes)
        done = done && step(type);
    return done;
}

void report(Dialogs &dialogs, const char *title, const char *text, MessageIcon icon)
{
    dialogs.message({QLatin1String(text), QLatin1String(title), icon});
}

} // namespace

bool associateFiles(Dialogs &dialogs, const std::function<void()> &afterwards)
{
    if (!forEachType(associate)) {
        report(dialogs, "Error", "Association Error!", MessageIcon::Critical);
        return false;
    }
    if (afterwards)
        afterwards();
    report(dialogs, "Files association", "CSound files association executed!",
           MessageIcon::Information);
    return true;
}

bool removeFilesAssociation(Dialogs &dialogs)
{
    if (!forEachType(removeAssociation)) {
        report(dialogs, "Error", "Remove Association Error!", MessageIcon::Critical);
        return false;
    }
    report(dialogs, "Remove association", "CSound files association removed!",
           MessageIcon::Information);
    return true;
}

} // namespace ardiphon
