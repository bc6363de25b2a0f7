#include "compile/ui/WaveCompileDialog.h"

#include "app/Blanks.h"
#include "app/ConfigurationBlock.h"
#include "audio/ui/WavePlayer.h"
#include "compile/CompilerEnvironment.h"
#include "compile/ui/FlagCombo.h"
#include "compile/ui/FlagList.h"
#include "platform/Dialogs.h"
#include "platform/FileAttributes.h"

#include <QCheckBox>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>

namespace ardiphon {

WaveCompileDialog::WaveCompileDialog(const CompilerDialogKind &kind, const CompileContext &context,
                                     RunConsole *console)
    : CompilerDialog(kind, context), m_runs(context.dialogs, context.system, console)
{
    m_runs.documentFolder =
        soundFolder(QFileInfo(config().OrchestraFileName).absolutePath(), config().RootPath);
    addControls(context);
    m_flags->load();
    m_player->openFirstWave();
    resize(640, sizeHint().height());
}

void WaveCompileDialog::addControls(const CompileContext &context)
{
    Orchestra = addField("Orchestra", QStringLiteral("Orchestra:"), config().OrchestraFileName);
    Score = addField("Score", QStringLiteral("Score:"), config().ScoreFileName);
    CheckRealTime = new QCheckBox(QStringLiteral("Realtime"), form());
    CheckRealTime->setObjectName(QStringLiteral("CheckRealTime"));
    Wave = addField("Wave", QStringLiteral("Wave:"), defaultWaveName(config().OrchestraFileName),
                    CheckRealTime);
    connect(CheckRealTime, &QCheckBox::clicked, this, &WaveCompileDialog::switchRealTime);
    m_flags = new FlagList(compilerFlags(), context, form());
    addFlags(*m_flags);
    const WavePlayerHost host{[this] { return wavePath(); },
                              QStringLiteral("No wave file generated!"),
                              {Compila, CercaCsound, m_flags->add, m_flags->remove, m_flags->help},
                              [this] { close(); }};
    m_player = new WavePlayer(config(), dialogs(), host, form());
    addPart(m_player);
}

QString WaveCompileDialog::wavePath() const
{
    return writtenWave(Wave->text(), outputFolder(m_runs.documentFolder));
}

ProjectFields WaveCompileDialog::fields() const
{
    return {m_flags->text(), Wave->text(), Orchestra->text(), Score->text()};
}

bool WaveCompileDialog::refuseFlag(QChar letter)
{
    if (!flagsGive(m_flags->text(), letter))
        return false;
    dialogs().message(
        {QStringLiteral("Don't use '-%1' flag in Ardiphon!").arg(letter), QStringLiteral("Error")});
    return true;
}

/// A key that was pressed just before the dialog closed may arrive after that; another run would
/// then cancel the stop of the one that is still being waited for.
void WaveCompileDialog::compile()
{
    if (!m_left && flagsAreAllowed() && !Wave->text().isEmpty() && freeWave())
        run();
}

bool WaveCompileDialog::freeWave()
{
    const QString path = withoutTrailingBlanks(wavePath());
    if (!QFileInfo(path).isFile()) {
        m_player->closeWave();
        return true;
    }
    const Answer answer = dialogs().message(
        {QStringLiteral("File Wave already exists!\r\n\r\nDo you want to overwrite it?"),
         QStringLiteral("CSound Compiler"), MessageIcon::Exclamation, MessageButtons::OkCancel});
    if (answer != Answer::Ok)
        return false;
    m_player->closeWave();
    ClearFileAttributes(path);
    QFile::remove(path);
    return true;
}

void WaveCompileDialog::switchRealTime(bool on)
{
    if (on)
        SavedWaveName = Wave->text().trimmed();
    Wave->setText(on ? AudioDevice : SavedWaveName);
    if (!on)
        m_player->OpenPlayerWave();
}

void WaveCompileDialog::leave()
{
    m_flags->save();
    m_player->closeWave();
    m_left = true;
    m_runs.requestStop();
}

} // namespace ardiphon
