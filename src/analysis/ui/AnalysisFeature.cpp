#include "analysis/ui/AnalysisFeature.h"

#include "analysis/ui/AnalysisWindows.h"
#include "analysis/ui/FormAnalisi.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"

#include <QMainWindow>

namespace ardiphon {

void AnalysisFeature::install(FeatureHost &host)
{
    const auto context = [&host] { return ToolContext::real(host.config(), host.dialogs()); };
    const auto bind = [&host, context](const char *name, const AnalysisTool &tool) {
        host.commands().bind(name, &host.owner(),
                             [&host, &tool, context] { showTool(tool, context(), &host.owner()); });
    };
    bind("menuHetro", Hetro);
    bind("menuLPAnal", LPAnal);
    bind("menuPVAnal", PVAnal);
    bind("menuPVLook", PVLook);
    bind("menuCVAnal", CVAnal);
    bind("menuDNoise", DNoise);
    host.commands().bind("buttonAnalisi", &host.owner(),
                         [&host, context] { FormAnalisi(context(), &host.owner()).exec(); });
}

} // namespace ardiphon
