#include "platform/StartDetached.h"

#include <QProcess>

namespace ardiphon {

QString ExecutableDirectory(const QString &path)
{
    return path.left(qMax(path.lastIndexOf(u'/'), qsizetype(0)));
}

bool StartDetached(const QString &file, const QStringList &arguments, const QString &directory,
                   const QList<EnvironmentChange> &environment)
{
    QProcess process;
    process.setProgram(file);
    process.setArguments(arguments);
    process.setWorkingDirectory(directory);
    process.setProcessEnvironment(changedEnvironment(environment));
    process.setStandardInputFile(QProcess::nullDevice());
    return process.startDetached();
}

} // namespace ardiphon
