#include "compile/ui/Launchers.h"

#include "app/ConfigurationBlock.h"
#include "compile/CompilerStart.h"
#include "compile/LaunchChecks.h"
#include "compile/ui/FormCSound.h"
#include "compile/ui/FormCSoundAV.h"
#include "compile/ui/FormCSoundCSD.h"
#include "compile/ui/FormWinsound.h"
#include "language/editor/LEditOCX.h"
#include "platform/CommandText.h"

namespace ardiphon {

namespace {

/// Shows the message of \a decision, if any. True when the dialog is to be opened.
bool mayOpen(const LaunchDecision &decision, Dialogs &dialogs)
{
    if (decision.message)
        dialogs.message(*decision.message);
    return decision.open;
}

bool mayLaunch(const Compiler &compiler, const CompileContext &context, const LEditOCX &editor)
{
    return mayOpen(
        checkCsdLaunch(compiler, context.config, editor.GetState(TextState), editor.Text()),
        context.dialogs);
}

LaunchedHalf launchedHalf(const LEditOCX &editor)
{
    return {editor.GetState(TextState), editor.Text().isEmpty()};
}

bool mayLaunch(const Compiler &compiler, const CompileContext &context,
               const ProjectEditors &editors)
{
    return mayOpen(checkProjectLaunch(compiler, context.config, launchedHalf(editors.orchestra),
                                      launchedHalf(editors.score)),
                   context.dialogs);
}

} // namespace

void launchCsdCompile(const CompileContext &context, LEditOCX &editor)
{
    if (mayOpen(checkCsdCompile(context.config, editor.GetState(TextState), editor.Text()),
                context.dialogs))
        FormCSoundCSD(context.config, context.dialogs, editor, context.owner, context.system)
            .exec();
}

void launchCsdWinsound(const CompileContext &context, const LEditOCX &editor)
{
    if (!mayLaunch(WinsoundCompiler, context, editor))
        return;
    const Message question{QStringLiteral("Compile File?"), QStringLiteral("Winsound Compiler"),
                           MessageIcon::Question, MessageButtons::OkCancel};
    if (context.dialogs.message(question) != Answer::Ok)
        return;
    const QString &csd = context.config.CSDFileName;
    startCompiler(context.config.FileWinsound, quoted(csd), csd, context.system.programFolder);
}

void launchCsdCSoundAV(const CompileContext &context, const LEditOCX &editor)
{
    if (mayLaunch(CSoundAVCompiler, context, editor))
        FormCSoundAV(context).exec();
}

void launchProjectCompile(const CompileContext &context, const ProjectEditors &editors)
{
    if (mayLaunch(CSoundCompiler, context, editors))
        FormCSound(context, editors.orchestra, editors.score).exec();
}

void launchProjectWinsound(const CompileContext &context, const ProjectEditors &editors)
{
    if (mayLaunch(WinsoundCompiler, context, editors))
        FormWinsound(context).exec();
}

void launchProjectCSoundAV(const CompileContext &context, const ProjectEditors &editors)
{
    if (mayLaunch(CSoundAVCompiler, context, editors))
        FormCSoundAVORC(context).exec();
}

} // namespace ardiphon
