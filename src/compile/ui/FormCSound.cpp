#include "compile/ui/FormCSound.h"

#include "app/ConfigurationBlock.h"
#include "audio/ui/WavePlayer.h"
#include "compile/CompileRules.h"
#include "compile/CompilerLog.h"
#include "compile/ui/ErrorJump.h"
#include "compile/ui/LinkedOutput.h"
#include "language/editor/LEditOCX.h"
#include "platform/Dialogs.h"
#include "platform/Twips.h"

#include <QBoxLayout>
#include <QFile>
#include <QPushButton>
#include <QScreen>
#include <QStackedLayout>

namespace ardiphon {

namespace {

// How much higher the window with the panel begins on the screen.
constexpr int PanelRise = toPixels(2200);
constexpr int PanelGrowth = toPixels(8400 - 3960);

const CompilerDialogKind &csoundDialog()
{
    static const CompilerDialogKind kind{
        QStringLiteral("FormCSound"),       QStringLiteral("CSound Console Compiler"),
        &ConfigurationBlock::FileCSound,    QStringLiteral("CSound:"),
        QStringLiteral("CSound Directory"), QStringLiteral("Csound.exe |*.exe"),
        QStringLiteral("&Compile"),
    };
    return kind;
}

} // namespace

FormCSound::FormCSound(const CompileContext &context, LEditOCX &orchestra, LEditOCX &score)
    : WaveCompileDialog(csoundDialog(), context, this), m_orchestra(orchestra), m_score(score)
{
    m_runs.compileLogFile = CompileLogFile(config().RootPath);
    FrameCompiler = newPanel();
    pages().addWidget(FrameCompiler);
    connect(btnStop, &QPushButton::clicked, this, &FormCSound::closePanel);
    connect(btnClose, &QPushButton::clicked, this, &FormCSound::closePanel);
    connect(btnGoToError, &QPushButton::clicked, this, [this] { goTo(m_error); });
    connect(TxtOutputs, &LinkedOutput::linkChosen, this,
            [this](const QStringList &lines, qsizetype index) {
                if (const auto place = placeAt(lines, index))
                    goTo(*place);
            });
}

QWidget *FormCSound::newPanel()
{
    auto *panel = new QWidget(this);
    panel->setObjectName(QStringLiteral("FrameCompiler"));
    const auto isLink = [this](const QStringList &lines, qsizetype index) {
        return placeAt(lines, index).has_value();
    };
    TxtOutputs = new LinkedOutput(isLink, LinesAround, panel);
    TxtOutputs->setObjectName(QStringLiteral("TxtOutputs"));
    TxtOutputs->setTabChangesFocus(true);
    btnStop = newButton("btnStop", QStringLiteral("&Stop Compiler"));
    btnGoToError = newButton("btnGoToError", QStringLiteral("Go to Line error -->>"));
    btnClose = newButton("btnClose", QStringLiteral("&Close"));
    btnStop->setEnabled(false);
    btnGoToError->hide();

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(btnStop);
    buttons->addWidget(btnGoToError);
    buttons->addStretch();
    buttons->addWidget(btnClose);
    auto *all = new QVBoxLayout(panel);
    all->addWidget(TxtOutputs);
    all->addLayout(buttons);
    return panel;
}

bool FormCSound::flagsAreAllowed() { return !refuseFlag(u'O') && !refuseFlag(u'o'); }

void FormCSound::run()
{
    openPanel();
    m_error = {};
    btnGoToError->hide();
    const bool ended = RunConsoleProcess(m_runs, compilerPath(),
                                         loggedProjectParameters(fields(), config().RootPath),
                                         ExecutableDirectory(compilerPath()), ShowCommand::Hidden);
    if (hasLeft()) // the compiler may have made its log again before it was killed
        QFile::remove(m_runs.compileLogFile);
    else if (ended)
        showResult();
}

void FormCSound::showResult()
{
    const auto log = readCompilerLog(m_runs.compileLogFile);
    if (log)
        TxtOutputs->setText(*log);
    TxtOutputs->insertBanner(m_runs.elapsed());
    TxtOutputs->setFocus();
    m_player->OpenPlayerWave();
    btnStop->setEnabled(false);
    analyse();
    if (log && m_runs.system().logShown)
        m_runs.system().logShown(*log);
    if (!log || log->isEmpty())
        dialogs().message({missingLogText(m_runs.compileLogFile)});
}

void FormCSound::analyse()
{
    const LogFinding finding = findLogError(TxtOutputs->text());
    if (finding.start >= 0)
        TxtOutputs->select(finding.start, finding.length);
    if (!finding.place)
        return;
    m_error = *finding.place;
    btnGoToError->show();
}

std::optional<ErrorPlace> FormCSound::placeAt(const QStringList &lines, qsizetype index) const
{
    return placeNamedAt(lines, index, config().OrchestraFileName, config().ScoreFileName);
}

void FormCSound::goTo(const ErrorPlace &place)
{
    if (place.target == ErrorTarget::None)
        return;
    LEditOCX &editor = place.target == ErrorTarget::Score ? m_score : m_orchestra;
    jumpToErrorLine(editor, place.line);
    editor.setFocus(); // for when the dialog is closed: the other editor may have had the focus
    close();
}

/// On a small screen the window stays below the upper edge and is no higher than the screen.
void FormCSound::openPanel()
{
    pages().setCurrentWidget(FrameCompiler);
    const QRect room = screen()->availableGeometry();
    m_raisedBy = qBound(0, y() - room.top(), PanelRise);
    m_grownBy = qBound(0, room.height() - frameGeometry().height(), PanelGrowth);
    resize(width(), height() + m_grownBy);
    move(x(), y() - m_raisedBy);
    btnStop->setEnabled(true);
}

/// Goes back to the form, and stops a compile that is still running.
void FormCSound::closePanel()
{
    m_runs.requestStop();
    pages().setCurrentWidget(form());
    resize(width(), height() - m_grownBy);
    move(x(), y() + m_raisedBy);
    Compila->setFocus();
}

void FormCSound::done(int result)
{
    leave();
    restoreCompiler();
    QFile::remove(m_runs.compileLogFile);
    QDialog::done(result);
}

void FormCSound::enableStop() { btnStop->setEnabled(true); }

QString FormCSound::consoleText() const { return TxtOutputs->text(); }

void FormCSound::setConsoleText(const QString &text) { TxtOutputs->setText(text); }

} // namespace ardiphon
