#include "platform/ProgramFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace ardiphon {

QString writableProgramFolder(const QString &programFolder)
{
    if (QFileInfo(programFolder).isWritable())
        return programFolder;
    QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                     QStringLiteral("/Ardiphon");
    QDir().mkpath(folder);
    return folder;
}

QString programPath(const QString &programFolder, const QString &name)
{
    const QString folder = programFolder.endsWith(u'/') ? programFolder : programFolder + u'/';
    return folder + name;
}

} // namespace ardiphon
