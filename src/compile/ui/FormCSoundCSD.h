#pragma once

#include "compile/ui/RunConsoleProcess.h"

#include <QDialog>

class QPushButton;

namespace ardiphon {

struct ConfigurationBlock;
class CompilerOutput;

/// The window in which a saved CSD is compiled by the console compiler. It waits for "&Compile",
/// shows what the compiler logged, and stops the compiler whatever way it is closed.
class FormCSoundCSD : public QDialog, private RunConsole
{
    Q_OBJECT

public:
    FormCSoundCSD(const ConfigurationBlock &config, Dialogs &dialogs, QWidget *owner,
                  RunSystem system = RunSystem::real());

    /// Every way of closing passes here; none can be refused.
    void done(int result) override;

protected:
    /// Esc and Enter mean nothing to this window.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void buildControls();
    void compile();
    void showResult();

    void enableStop() override;
    QString consoleText() const override;
    void setConsoleText(const QString &text) override;

    const ConfigurationBlock &m_config;
    RunOwner m_runs;
    CompilerOutput *TxtOutputs = nullptr;
    QPushButton *Command2 = nullptr;
    QPushButton *btnStop = nullptr;
    QPushButton *Command1 = nullptr;
    bool m_closed = false;
};

} // namespace ardiphon
