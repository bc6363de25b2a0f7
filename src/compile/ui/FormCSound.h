#pragma once

#include "compile/LogAnalysis.h"
#include "compile/ui/WaveCompileDialog.h"

namespace ardiphon {

class LEditOCX;
class LinkedOutput;

/// The dialog in which a project is compiled by the console compiler. A compile opens a panel over
/// the form, and the window grows to make room for the log; from there the user goes to the line of
/// the first error, or back to the form.
class FormCSound : public WaveCompileDialog, private RunConsole
{
    Q_OBJECT

public:
    /// \a orchestra and \a score: the editors in which a line with an error is selected.
    FormCSound(const CompileContext &context, LEditOCX &orchestra, LEditOCX &score);

    /// Every way of closing the dialog calls this; none is refused.
    void done(int result) override;

private:
    bool flagsAreAllowed() override;
    void run() override;

    QWidget *newPanel();
    void openPanel();
    void closePanel();
    void showResult();
    void analyse();
    std::optional<ErrorPlace> placeAt(const QStringList &lines, qsizetype index) const;
    /// Selects the line in its editor and closes the dialog.
    void goTo(const ErrorPlace &place);

    void enableStop() override;
    QString consoleText() const override;
    void setConsoleText(const QString &text) override;

    LEditOCX &m_orchestra;
    LEditOCX &m_score;
    QWidget *FrameCompiler;
    LinkedOutput *TxtOutputs = nullptr;
    QPushButton *btnStop = nullptr;
    QPushButton *btnClose = nullptr;
    QPushButton *btnGoToError = nullptr;
    ErrorPlace m_error; ///< where the button leads
    int m_raisedBy = 0; ///< how far the window was moved up, in pixels, when the panel opened
    int m_grownBy = 0;  ///< and how much higher it became
};

} // namespace ardiphon
