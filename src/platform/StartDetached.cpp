#include "platform/StartDetached.h"

#include "platform/CommandText.h"

#include <QProcess>

namespace ardiphon {

bool StartDetached(const QString &file, const QString &parameters, const QString &directory)
{
    QProcess process;
    process.setProgram(file);
    process.setArguments(splitCommandText(parameters));
    process.setWorkingDirectory(directory);
    process.setStandardInputFile(QProcess::nullDevice());
    return process.startDetached();
}

} // namespace ardiphon
