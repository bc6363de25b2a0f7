#pragma once

#include "analysis/ToolCommand.h"
#include "analysis/ui/ToolContext.h"

#include <QDialog>

class QBoxLayout;
class QPushButton;

namespace ardiphon {

class HintPanel;
class ToolFields;

/// The form of an analysis utility: files, options and hints, built from the tool's description. It
/// makes a command line of their values and starts the tool, as often as the user likes, without
/// waiting for it. The values are not kept when the window closes.
class ToolForm : public QDialog
{
    Q_OBJECT

public:
    ToolForm(const AnalysisTool &tool, const ToolContext &context, QWidget *owner);

protected:
    const ToolContext &context() const { return m_context; }
    QPushButton *newButton(const char *name, const char *caption);
    QBoxLayout &all() const { return *m_all; }
    ToolFields &fields() const { return *m_fields; }

    /// Called when the user has chosen \a path as the input.
    virtual void takeInput(const QString &path);
    /// Sets the default values again.
    virtual void revert();
    /// Sets the default of the typed flags again; called for a tool that has such flags.
    virtual void revertMoreFlags();
    /// Starts the tool; called when startObstacle() finds nothing.
    virtual void run();
    /// Called with the parameters just before the tool starts.
    virtual void showParameters(const QString &) {}

    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void buildButtons();
    void connectControls();
    int leastHeight() const;

    std::optional<QString> askForInput();
    void browse();
    void browseNoise();
    void analyze();
    void openHint(int index);
    void closeHint();
    QRect placeOf(const QWidget &control) const;
    void placeHint();

    const AnalysisTool &m_tool;
    const ToolContext m_context;
    QBoxLayout *m_all;
    ToolFields *m_fields = nullptr;
    int m_hint = 0; ///< the one that is shown, or was shown last

    HintPanel *Frame1 = nullptr;
    QPushButton *CommandRevert = nullptr;
    QPushButton *CommandAnalyze = nullptr;
    QPushButton *CommandExit = nullptr;
};

} // namespace ardiphon
