#pragma once

#include "compile/LogAnalysis.h"
#include "compile/ui/RunConsoleProcess.h"

#include <QDialog>

class QPushButton;

namespace ardiphon {

struct ConfigurationBlock;
class LEditOCX;
class LinkedOutput;

/// The window in which a saved CSD is compiled by the console compiler. It waits for "&Compile",
/// shows what the compiler logged, and stops the compiler however it is closed. Where the log names
/// a line of the CSD, a double click leads there.
class FormCSoundCSD : public QDialog, private RunConsole
{
    Q_OBJECT

public:
    /// \a editor: where a line of the CSD is selected.
    FormCSoundCSD(const ConfigurationBlock &config, Dialogs &dialogs, LEditOCX &editor,
                  QWidget *owner, RunSystem system = RunSystem::real());

    /// Every way of closing the window calls this; none is refused.
    void done(int result) override;

protected:
    /// Esc and Enter do nothing in this window.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void buildControls();
    void compile();
    void showResult();
    std::optional<ErrorPlace> placeAt(const QStringList &lines, qsizetype index) const;
    void goTo(const QStringList &lines, qsizetype index);

    void enableStop() override;
    QString consoleText() const override;
    void setConsoleText(const QString &text) override;

    const ConfigurationBlock &m_config;
    LEditOCX &m_editor;
    RunOwner m_runs;
    LinkedOutput *TxtOutputs = nullptr;
    QPushButton *Command2 = nullptr;
    QPushButton *btnStop = nullptr;
    QPushButton *Command1 = nullptr;
    bool m_closed = false;
};

} // namespace ardiphon
