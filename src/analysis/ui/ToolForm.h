#pragma once

#include "analysis/ToolCommand.h"
#include "analysis/ui/ToolContext.h"

#include <QDialog>

class QAbstractButton;
class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace ardiphon {

class HintPanel;
class NumericFields;
class PathLabel;

/// The form of an analysis utility: files, options and hints, built from the tool's description. It
/// makes a command line of its values and starts the tool, as often as the user likes, without
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

    QComboBox *Combo1 = nullptr;
    QCheckBox *CheckMoreFlags = nullptr;
    QLineEdit *TextMoreFlags = nullptr;

private:
    /// The controls of a row; null where it has none.
    struct RowControls
    {
        const ToolRow *row;
        QLineEdit *text = nullptr;
        QAbstractButton *button = nullptr;
    };

    // Building, in ToolFormParts.cpp.
    void buildFiles();
    void addFileRow(const char *name, const char *caption, QWidget *file, QWidget *browse);
    void buildFormats();
    void buildGroups();
    void buildRows(const ToolGroup &group, QWidget *parent, QGridLayout &grid);
    void buildRow(const ToolRow &row, QWidget *parent, QGridLayout &grid);
    QAbstractButton *newSwitch(const ToolRow &row, QWidget *parent);
    QLineEdit *newField(const ToolRow &row, QWidget *parent);
    QComboBox *newCombo(const ToolRow &row, QWidget *parent);
    QToolButton *newHelpMark(int hint, QWidget *parent);
    void buildMoreFlags(QWidget *parent, QGridLayout &grid);
    void buildButtons();
    void connectControls();
    int leastHeight() const;

    QString initialOf(const ToolRow &row) const;
    const char *suffix() const;
    ToolValues values() const;
    std::optional<QString> askForInput();
    void browse();
    void browseNoise();
    void writeChoice();
    void analyze();
    void openHint(int index);
    void closeHint();
    QRect placeOf(const QWidget &control) const;
    QRect lineOf(int hint) const;
    void placeHint();

    const AnalysisTool &m_tool;
    const ToolContext m_context;
    QList<RowControls> m_rows;
    QList<QAbstractButton *> m_formats;
    NumericFields *m_numbers;
    QBoxLayout *m_all;
    QGridLayout *m_files;             ///< has the rows without a frame too, for a common alignment
    QList<QToolButton *> m_helpMarks; ///< in the order of their hints
    int m_hint = 0;                   ///< the one that is shown, or was shown last

    PathLabel *LabelInput = nullptr;
    PathLabel *LabelNoise = nullptr;
    QLineEdit *TextOutput = nullptr;
    HintPanel *Frame1 = nullptr;
    QPushButton *CommandRevert = nullptr;
    QPushButton *CommandAnalyze = nullptr;
    QPushButton *CommandExit = nullptr;
};

} // namespace ardiphon
