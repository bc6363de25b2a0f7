#include "documents/ui/ProgramsFeature.h"

#include "platform/DesktopTools.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"

#include <QMainWindow>

#include <tuple>

namespace ardiphon {

void ProgramsFeature::install(FeatureHost &host)
{
    // Nothing is said where the desktop has no such program: no file of the user depends on it.
    host.commands().bind("menuCommandLine", &host.owner(),
                         [] { std::ignore = StartCommandPrompt(); });
    host.commands().bind("buttonCalculator", &host.owner(),
                         [] { std::ignore = StartCalculator(); });
}

} // namespace ardiphon
