#include "compile/ui/FormCSoundAV.h"

#include "app/ConfigurationBlock.h"
#include "compile/CompilerStart.h"
#include "compile/ProjectParameters.h"
#include "compile/ui/FlagCombo.h"
#include "compile/ui/FlagList.h"
#include "platform/CommandText.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

namespace ardiphon {

namespace {

constexpr int DialogWidth = 520;

CompilerDialogKind playerDialog(const QString &name, const QString &title)
{
    return {name,
            title,
            &ConfigurationBlock::FileDirectCSound,
            QStringLiteral("DirectCSound:"),
            QStringLiteral("DirectCSound/CSoundAV Directory"),
            QStringLiteral("DirectCSound.exe |*.exe"),
            QStringLiteral("&Play")};
}

const CompilerDialogKind &csdDialog()
{
    static const CompilerDialogKind kind =
        playerDialog(QStringLiteral("FormCSoundAV"), QStringLiteral("CSoundAV"));
    return kind;
}

const CompilerDialogKind &projectDialog()
{
    static const CompilerDialogKind kind =
        playerDialog(QStringLiteral("FormCSoundAVORC"), QStringLiteral("CSoundAV (Orc. & Sco.)"));
    return kind;
}

} // namespace

FormCSoundAV::FormCSoundAV(const CompileContext &context)
    : CompilerDialog(csdDialog(), context), m_programFolder(context.system.programFolder)
{
    addField("Orchestra", QStringLiteral("CSD File:"), config().CSDFileName);
    takeSize(DialogWidth);
}

void FormCSoundAV::compile()
{
    const QString &csd = config().CSDFileName;
    startCompiler(compilerPath(), quoted(csd), csd, m_programFolder);
    close();
}

void FormCSoundAV::done(int result)
{
    restoreCompiler();
    QDialog::done(result);
}

FormCSoundAVORC::FormCSoundAVORC(const CompileContext &context)
    : CompilerDialog(projectDialog(), context), m_programFolder(context.system.programFolder)
{
    Orchestra = addField("Orchestra", QStringLiteral("Orchestra:"), config().OrchestraFileName);
    Score = addField("Score", QStringLiteral("Score:"), config().ScoreFileName);
    m_flags = new FlagList(playerFlags(), context, this);
    addFlags(*m_flags);
    m_flags->load();
    takeSize(DialogWidth);
}

void FormCSoundAVORC::compile()
{
    startCompiler(
        compilerPath(),
        playedProjectParameters({m_flags->text(), QString(), Orchestra->text(), Score->text()}),
        config().OrchestraFileName, m_programFolder);
    close();
}

void FormCSoundAVORC::done(int result)
{
    restoreCompiler();
    m_flags->save();
    QDialog::done(result);
}

void FormCSoundAVORC::keyPressEvent(QKeyEvent *event)
{
    if (isEnter(*event) && m_flags->Flags->hasFocus())
        Compila->setFocus();
    else
        CompilerDialog::keyPressEvent(event);
}

} // namespace ardiphon
