#include "documents/ui/ProgramsFeature.h"

#include "platform/DesktopTools.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"

#include <QMainWindow>

namespace ardiphon {

void ProgramsFeature::install(FeatureHost &host)
{
    host.commands().bind("menuCommandLine", &host.owner(), [] { StartCommandPrompt(); });
    host.commands().bind("buttonCalculator", &host.owner(), [] { StartCalculator(); });
}

} // namespace ardiphon
