#include "compile/ui/FormWinsound.h"

#include "app/ConfigurationBlock.h"
#include "audio/ui/WavePlayer.h"
#include "compile/CompileRules.h"

namespace ardiphon {

namespace {

const CompilerDialogKind &winsoundDialog()
{
    static const CompilerDialogKind kind{
        QStringLiteral("FormWinsound"),       QStringLiteral("Winsound Compiler"),
        &ConfigurationBlock::FileWinsound,    QStringLiteral("Winsound:"),
        QStringLiteral("Winsound Directory"), QStringLiteral("Winsound.exe |*.exe"),
        QStringLiteral("&Compile"),
    };
    return kind;
}

} // namespace

FormWinsound::FormWinsound(const CompileContext &context)
    : WaveCompileDialog(winsoundDialog(), context, nullptr)
{
}

bool FormWinsound::flagsAreAllowed() { return !refuseFlag(u'o'); }

void FormWinsound::run()
{
    if (RunConsoleProcess(m_runs, compilerPath(), projectParameters(fields()),
                          ExecutableDirectory(compilerPath()), ShowCommand::Normal))
        m_player->OpenPlayerWave();
}

void FormWinsound::done(int result)
{
    restoreCompiler();
    leave();
    QDialog::done(result);
}

} // namespace ardiphon
