#pragma once

#include "analysis/ToolCommand.h"

#include <QList>
#include <QObject>
#include <QSize>

class QAbstractButton;
class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLineEdit;
class QPushButton;
class QToolButton;
class QWidget;

namespace ardiphon {

class NumericFields;
class PathLabel;

/// A button of a tool's form, which Enter in a field does not press.
QPushButton *newFormButton(const char *name, const char *caption, QWidget *form);

/// The files and options of a tool's form: their controls, built from the tool's description, and
/// their values. It asks for nothing and starts nothing; the form does.
class ToolFields : public QObject
{
    Q_OBJECT

public:
    /// Makes the controls in \a form, without values, and adds them to its layout \a all.
    ToolFields(const AnalysisTool &tool, QWidget &form, QBoxLayout &all);

    ToolValues values() const;
    /// Shows \a path as the input, and what the tool proposes for it as output.
    void takeInput(const QString &path);
    /// Sets the default values of all but the typed flags again.
    void revert();

    /// What belongs to the field that a hint explains: its help mark first, then its controls.
    QList<QWidget *> lineOf(int hint) const;
    /// Between one field and the next, in pixels.
    QSize spacing() const;

    PathLabel *LabelInput = nullptr;
    PathLabel *LabelNoise = nullptr;     ///< null where the tool takes no such file
    QComboBox *Combo1 = nullptr;         ///< null where the tool has no choice
    QCheckBox *CheckMoreFlags = nullptr; ///< null where the tool takes no typed flags
    QLineEdit *TextMoreFlags = nullptr;  ///< as above

signals:
    /// The user is to be asked for the input.
    void inputRequested();
    /// The user is to be asked for the file of `LabelNoise`.
    void noiseRequested();
    /// The hint of that index is to be shown.
    void hintRequested(int hint);

private:
    /// The controls of a row; null where it has none.
    struct RowControls
    {
        const ToolRow *row;
        QLineEdit *text = nullptr;
        QAbstractButton *button = nullptr;
    };

    void buildFiles();
    void addFileRow(const char *name, const char *caption, QWidget *file, QWidget *browse);
    void buildFormats();
    void buildGroups();
    void buildRows(const ToolGroup &group, QWidget *parent, QGridLayout &grid);
    void buildRow(const ToolRow &row, QWidget *parent, QGridLayout &grid);
    QLineEdit *newField(const ToolRow &row, QWidget *parent);
    QComboBox *newCombo(const ToolRow &row, QWidget *parent);
    QToolButton *newHelpMark(int hint, QWidget *parent);
    void buildMoreFlags(QWidget *parent, QGridLayout &grid);

    QString initialOf(const ToolRow &row) const;
    const char *suffix() const;
    void writeChoice();

    const AnalysisTool &m_tool;
    QWidget &m_form;
    QBoxLayout &m_all;
    QGridLayout *m_files; ///< has the rows without a frame too, for a common alignment
    NumericFields *m_numbers;
    QLineEdit *TextOutput = nullptr;
    QList<RowControls> m_rows;
    QList<QAbstractButton *> m_formats;
    QList<QToolButton *> m_helpMarks; ///< in the order of their hints
};

} // namespace ardiphon
