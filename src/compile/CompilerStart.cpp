#include "compile/CompilerStart.h"

#include "compile/CompilerEnvironment.h"
#include "platform/CommandText.h"
#include "platform/StartDetached.h"
#include "platform/Terminal.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <tuple>

namespace ardiphon {

void startCompiler(const QString &compiler, const QString &parameters, const QString &document,
                   const QString &programFolder)
{
    const QFileInfo file(compiler.contains(u'/') ? compiler
                                                 : QStandardPaths::findExecutable(compiler));
    if (!file.isFile() || !file.isExecutable()) // so that no empty terminal opens
        return;
    ProgramCommand command =
        commandOf(file.absoluteFilePath(), parameters, ExecutableDirectory(compiler));
    command.environment = compilerEnvironment(QFileInfo(document).absolutePath());
    // The user sees whether the compiler's own window opens; a failure is not reported.
    std::ignore = startInTerminal(command, programFolder);
}

} // namespace ardiphon
