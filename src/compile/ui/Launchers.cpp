#include "compile/ui/CsdCompileLauncher.h"

#include "app/ConfigurationBlock.h"
#include "compile/CsdCompileCheck.h"
#include "compile/ui/FormCSoundCSD.h"
#include "language/editor/LEditOCX.h"

namespace ardiphon {

void launchCsdCompile(const ConfigurationBlock &config, Dialogs &dialogs, const LEditOCX &editor,
                      QWidget *owner, const RunSystem &system)
{
    const LaunchDecision decision =
        checkCsdCompile(config.CSDFileName, editor.GetState(2), editor.Text(), config.FileCSound);
    if (decision.message)
        dialogs.message(*decision.message);
    if (!decision.open)
        return;
    FormCSoundCSD console(config, dialogs, owner, system);
    console.exec();
}

} // namespace ardiphon
