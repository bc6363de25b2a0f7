#include "compile/CompilerStart.h"

#include "compile/CompilerEnvironment.h"
#include "platform/StartDetached.h"

#include <QFileInfo>

namespace ardiphon {

void startCompiler(const QString &compiler, const QString &parameters, const QString &document)
{
    StartDetached(compiler, parameters, ExecutableDirectory(compiler),
                  compilerEnvironment(QFileInfo(document).absolutePath()));
}

} // namespace ardiphon
