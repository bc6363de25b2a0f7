#include "compile/ui/CompileFeature.h"

#include "compile/ui/Launchers.h"
#include "help/ui/FormManual.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"

#include <QMainWindow>

namespace ardiphon {

namespace {

CompileContext contextOf(FeatureHost &host)
{
    CompileContext context{host.config(), host.dialogs(), &host.owner(), manualViewer};
    context.system.logShown = [&host](const QString &log) { host.reportLog(log); };
    return context;
}

void installForCsd(FeatureHost &host, LEditOCX &editor)
{
    const auto bind = [&host, &editor](const char *name, auto launch) {
        host.commands().bind(name, &host.owner(),
                             [&host, &editor, launch] { launch(contextOf(host), editor); });
    };
    bind("menuCSound", &launchCsdCompile);
    bind("menuToolsWinsound", &launchCsdWinsound);
    bind("menuCSoundAV", &launchCsdCSoundAV);
}

void installForProject(FeatureHost &host, const ProjectEditors &editors)
{
    const auto bind = [&host, editors](const char *name, auto launch) {
        host.commands().bind(name, &host.owner(),
                             [&host, editors, launch] { launch(contextOf(host), editors); });
    };
    bind("menuCSound", &launchProjectCompile);
    bind("menuToolsWinsound", &launchProjectWinsound);
    bind("menuCSoundAV", &launchProjectCSoundAV);
}

} // namespace

void CompileFeature::install(FeatureHost &host)
{
    if (LEditOCX *const csd = host.editor(DocumentRole::Csd))
        installForCsd(host, *csd);
    else
        installForProject(
            host, {*host.editor(DocumentRole::Orchestra), *host.editor(DocumentRole::Score)});
}

} // namespace ardiphon
