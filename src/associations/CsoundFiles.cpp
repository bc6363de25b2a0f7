#include "associations/CsoundFiles.h"

#include "platform/Dialogs.h"
#include "platform/FileAssociation.h"
#include "platform/ProgramFolder.h"

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

QString associate(const FileType &type)
{
    const QString icon =
        programPath(QCoreApplication::applicationDirPath(), QLatin1String(type.icon));
    return CreateFileAssociation(QLatin1String(type.classKey), QLatin1String(type.extension),
                                 QLatin1String(type.description), icon, Executable);
}

QString removeAssociation(const FileType &type)
{
    return RemoveFileAssociation(QLatin1String(type.classKey), QLatin1String(type.extension));
}

/// Does \a step for each type, up to the first failure; returns that as a sentence, or "".
QString forEachType(QString (*step)(const FileType &))
{
    QString failure;
    for (const FileType &type : fileTypes)
        if (failure.isEmpty())
            failure = step(type);
    return failure;
}

void report(Dialogs &dialogs, const char *title, const char *text)
{
    dialogs.message({QLatin1String(text), QLatin1String(title), MessageIcon::Information});
}

void reportFailure(Dialogs &dialogs, const char *text, const QString &failure)
{
    dialogs.message({QLatin1String(text), QStringLiteral("Error"), MessageIcon::Critical,
                     MessageButtons::Ok, false, failure});
}

} // namespace

bool associateFiles(Dialogs &dialogs, const std::function<void()> &afterwards)
{
    if (const QString failure = forEachType(associate); !failure.isEmpty()) {
        reportFailure(dialogs, "Association Error!", failure);
        return false;
    }
    if (afterwards)
        afterwards();
    report(dialogs, "Files association", "CSound files association executed!");
    return true;
}

bool removeFilesAssociation(Dialogs &dialogs)
{
    if (const QString failure = forEachType(removeAssociation); !failure.isEmpty()) {
        reportFailure(dialogs, "Remove Association Error!", failure);
        return false;
    }
    report(dialogs, "Remove association", "CSound files association removed!");
    return true;
}

} // namespace ardiphon
