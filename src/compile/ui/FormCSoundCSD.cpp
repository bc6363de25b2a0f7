#include "compile/ui/FormCSoundCSD.h"

#include "app/ConfigurationBlock.h"
#include "compile/CompileRules.h"
#include "compile/CompilerEnvironment.h"
#include "compile/CompilerLog.h"
#include "compile/ui/CompilerOutput.h"
#include "compile/ui/ErrorJump.h"
#include "compile/ui/LinkedOutput.h"
#include "platform/Dialogs.h"

#include <QBoxLayout>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPushButton>

#include <utility>

namespace ardiphon {

FormCSoundCSD::FormCSoundCSD(const ConfigurationBlock &config, Dialogs &dialogs, LEditOCX &editor,
                             QWidget *owner, RunSystem system)
    : QDialog(owner), m_config(config), m_editor(editor), m_runs(dialogs, std::move(system), this)
{
    m_runs.compileLogFile = CompileLogFile(config.RootPath);
    m_runs.documentFolder =
        soundFolder(QFileInfo(config.CSDFileName).absolutePath(), config.RootPath);
    setObjectName(QStringLiteral("FormCSoundCSD"));
    setWindowTitle(QStringLiteral("CSound Console Compiler"));
    buildControls();
    connect(Command2, &QPushButton::clicked, this, &FormCSoundCSD::compile);
    connect(Command1, &QPushButton::clicked, this, &QWidget::close);
    connect(TxtOutputs, &LinkedOutput::linkChosen, this, &FormCSoundCSD::goTo);
    connect(btnStop, &QPushButton::clicked, this, [this] {
        m_runs.requestStop();
        btnStop->setEnabled(false);
    });
}

void FormCSoundCSD::buildControls()
{
    const auto button = [this](const char *name, const char *caption) {
        auto *made = new QPushButton(QLatin1String(caption), this);
        made->setObjectName(QLatin1String(name));
        return made;
    };
    Command2 = button("Command2", "&Compile");
    btnStop = button("btnStop", "&Stop Compiler");
    Command1 = button("Command1", "E&xit");
    const auto isLink = [this](const QStringList &lines, qsizetype index) {
        return placeAt(lines, index).has_value();
    };
    TxtOutputs = new LinkedOutput(isLink, LinesAround, this);
    TxtOutputs->setObjectName(QStringLiteral("TxtOutputs"));
    TxtOutputs->setTabChangesFocus(true);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(Command2);
    buttons->addWidget(btnStop);
    buttons->addStretch();
    buttons->addWidget(Command1);
    auto *all = new QVBoxLayout(this);
    all->addWidget(TxtOutputs);
    all->addLayout(buttons);
    Command2->setFocus();
    resize(760, 520);
}

/// A key that was pressed just before the window closed may arrive after that; another run would
/// then cancel the stop of the one that is still being waited for.
void FormCSoundCSD::compile()
{
    if (m_closed)
        return;
    const bool ended = RunConsoleProcess(
        m_runs, m_config.FileCSound, csdParameters(m_config.CSDFileName, m_config.RootPath),
        ExecutableDirectory(m_config.FileCSound), ShowCommand::Hidden);
    if (m_closed) { // the compiler may have made its log again before it was killed
        QFile::remove(m_runs.compileLogFile);
        return;
    }
    if (ended)
        showResult();
    TxtOutputs->setFocus();
}

void FormCSoundCSD::showResult()
{
    const auto log = readCompilerLog(m_runs.compileLogFile);
    if (log)
        TxtOutputs->setText(*log);
    TxtOutputs->insertBanner(m_runs.elapsed());
    btnStop->setEnabled(false);
    if (log && m_runs.system().logShown)
        m_runs.system().logShown(*log);
    if (!log || log->isEmpty())
        m_runs.dialogs().message({missingLogText(m_runs.compileLogFile)});
}

std::optional<ErrorPlace> FormCSoundCSD::placeAt(const QStringList &lines, qsizetype index) const
{
    return placeNamedAt(lines, index, m_config.CSDFileName, QString());
}

void FormCSoundCSD::goTo(const QStringList &lines, qsizetype index)
{
    const auto place = placeAt(lines, index);
    if (!place)
        return;
    jumpToErrorLine(m_editor, place->line);
    close();
}

void FormCSoundCSD::done(int result)
{
    QFile::remove(m_runs.compileLogFile);
    m_closed = true;
    m_runs.requestStop();
    QDialog::done(result);
}

void FormCSoundCSD::keyPressEvent(QKeyEvent *event) { event->ignore(); }

void FormCSoundCSD::enableStop() { btnStop->setEnabled(true); }

QString FormCSoundCSD::consoleText() const { return TxtOutputs->text(); }

void FormCSoundCSD::setConsoleText(const QString &text) { TxtOutputs->setText(text); }

} // namespace ardiphon
