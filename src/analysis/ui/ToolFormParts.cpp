// How a tool's form is built from the tool's description.

#include "analysis/ui/HintPanel.h"
#include "analysis/ui/NumericFields.h"
#include "analysis/ui/ToolForm.h"
#include "app/ui/Icons.h"
#include "app/ui/PathLabel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace ardiphon {

namespace {

constexpr int LeastCharacters = 80; ///< the least width of a form, as paths are long

enum Column { LabelColumn, ValueColumn, NoteColumn, HelpColumn };

void setName(QObject *object, const char *name) { object->setObjectName(QLatin1String(name)); }

QLabel *newNote(const char *text, QWidget *parent)
{
    auto *const note = new QLabel(QLatin1String(text), parent);
    setName(note, "Label3");
    return note;
}

} // namespace

ToolForm::ToolForm(const AnalysisTool &tool, const ToolContext &context, QWidget *owner)
    : QDialog(owner),
      m_tool(tool),
      m_context(context),
      m_numbers(new NumericFields(this)),
      m_all(new QVBoxLayout(this)),
      m_files(new QGridLayout)
{
    setName(this, tool.form);
    setWindowTitle(QLatin1String(tool.caption));
    m_all->addLayout(m_files);
    m_files->setColumnStretch(ValueColumn, 1);
    buildFiles();
    buildGroups();
    m_all->addStretch();
    buildButtons();
    Frame1 = new HintPanel(this);
    ToolForm::revert();
    connectControls();
    const int width = LeastCharacters * fontMetrics().averageCharWidth();
    resize(sizeHint().expandedTo({width, leastHeight()}));
}

/// The least height with room for the hint above or below every line.
int ToolForm::leastHeight() const
{
    const QMargins margins = m_all->contentsMargins();
    const int line = CommandExit->sizeHint().height() + 2 * m_files->verticalSpacing();
    const int hint = Frame1->minimumSizeHint().height() + fontMetrics().lineSpacing(); // the title
    return margins.top() + margins.bottom() + line + 2 * hint;
}

QPushButton *ToolForm::newButton(const char *name, const char *caption)
{
    auto *const button = new QPushButton(QLatin1String(caption), this);
    setName(button, name);
    button->setAutoDefault(false);
    return button;
}

void ToolForm::buildFiles()
{
    const auto newBrowse = [this](const char *name, void (ToolForm::*handler)()) {
        QPushButton *const button = newButton(name, "&Browse");
        connect(button, &QPushButton::clicked, this, handler);
        return button;
    };
    LabelInput = new PathLabel(QStringLiteral("LabelInput"), this);
    addFileRow("Label1", m_tool.inputLabel, LabelInput, newBrowse("Command1", &ToolForm::browse));
    if (*m_tool.noiseLabel) {
        LabelNoise = new PathLabel(QStringLiteral("LabelNoise"), this);
        addFileRow("LabelNoiseCaption", m_tool.noiseLabel, LabelNoise,
                   newBrowse("Command2", &ToolForm::browseNoise));
    }
    if (m_tool.formats.empty())
        return;
    TextOutput = new QLineEdit(this);
    setName(TextOutput, "TextOutput");
    addFileRow("Label2", m_tool.outputLabel, TextOutput, nullptr);
    if (m_tool.formats.size() > 1)
        buildFormats();
}

void ToolForm::addFileRow(const char *name, const char *caption, QWidget *file, QWidget *browse)
{
    auto *const label = new QLabel(QLatin1String(caption), this);
    setName(label, name);
    label->setBuddy(file);
    const int line = m_files->rowCount();
    m_files->addWidget(label, line, LabelColumn);
    auto *const fileAndButton = new QHBoxLayout;
    fileAndButton->addWidget(file, 1);
    if (browse)
        fileAndButton->addWidget(browse);
    m_files->addLayout(fileAndButton, line, ValueColumn, 1, -1);
}

void ToolForm::buildFormats()
{
    auto *const line = new QHBoxLayout;
    for (const OutputFormat &format : m_tool.formats) {
        auto *const option = new QRadioButton(QLatin1String(format.caption), this);
        setName(option, format.name);
        option->setChecked(m_formats.isEmpty());
        connect(option, &QRadioButton::clicked, this, [this] {
            if (!LabelInput->text().isEmpty())
                TextOutput->setText(withSuffix(LabelInput->text(), suffix()));
        });
        line->addWidget(option);
        m_formats.append(option);
    }
    line->addStretch();
    m_files->addLayout(line, m_files->rowCount(), ValueColumn, 1, -1);
}

/// The first frame is on the left, all others are one below the other on the right.
void ToolForm::buildGroups()
{
    if (!*m_tool.groups.front().title) {
        buildRows(m_tool.groups.front(), this, *m_files);
        return;
    }
    auto *const frames = new QHBoxLayout;
    auto *const right = new QVBoxLayout;
    m_all->addLayout(frames);
    for (const ToolGroup &group : m_tool.groups) {
        auto *const frame = new QGroupBox(QLatin1String(group.title), this);
        auto *const grid = new QGridLayout(frame);
        grid->setColumnStretch(ValueColumn, 1);
        buildRows(group, frame, *grid);
        grid->setRowStretch(grid->rowCount(), 1);
        if (frames->isEmpty()) {
            frames->addWidget(frame);
            frames->addLayout(right);
        } else {
            right->addWidget(frame);
        }
    }
}

void ToolForm::buildRows(const ToolGroup &group, QWidget *parent, QGridLayout &grid)
{
    for (const ToolRow &row : group.rows)
        buildRow(row, parent, grid);
    if (m_tool.moreFlags && &group == &m_tool.groups.back())
        buildMoreFlags(parent, grid);
}

void ToolForm::buildRow(const ToolRow &row, QWidget *parent, QGridLayout &grid)
{
    const int line = grid.rowCount();
    RowControls controls{&row};
    QWidget *caption = nullptr; // the label or switch before the value
    if (row.kind != Switch::None)
        caption = controls.button = newSwitch(row, parent);
    else if (*row.label)
        caption = new QLabel(QLatin1String(row.label), parent);
    QComboBox *const combo = row.choices.empty() ? nullptr : newCombo(row, parent);
    if (*row.text)
        controls.text = newField(row, parent);

    if (!caption)
        caption = combo;
    QWidget *const value = *row.text ? static_cast<QWidget *>(controls.text) : combo;
    grid.addWidget(caption, line, LabelColumn, 1, value ? 1 : 2);
    if (value)
        grid.addWidget(value, line, ValueColumn, 1, *row.note ? 1 : 2);
    if (*row.note)
        grid.addWidget(newNote(row.note, parent), line, NoteColumn);
    if (row.hint != NoHint)
        grid.addWidget(newHelpMark(row.hint, parent), line, HelpColumn);
    if (auto *const label = qobject_cast<QLabel *>(caption))
        label->setBuddy(value);
    if (controls.button && controls.text) {
        controls.text->setEnabled(false);
        connect(controls.button, &QAbstractButton::toggled, controls.text, &QWidget::setEnabled);
    }
    m_rows.append(controls);
}

QAbstractButton *ToolForm::newSwitch(const ToolRow &row, QWidget *parent)
{
    const QString caption = QLatin1String(row.label);
    QAbstractButton *button = nullptr;
    if (row.kind == Switch::CheckBox)
        button = new QCheckBox(caption, parent);
    else
        button = new QRadioButton(caption, parent);
    setName(button, row.name);
    return button;
}

QLineEdit *ToolForm::newField(const ToolRow &row, QWidget *parent)
{
    auto *const field = new QLineEdit(parent);
    setName(field, row.text);
    if (row.number)
        m_numbers->watch(
            field, [this, &row] { return m_tool.restoresEmpty ? initialOf(row) : QString(); });
    return field;
}

QComboBox *ToolForm::newCombo(const ToolRow &row, QWidget *parent)
{
    Combo1 = new QComboBox(parent);
    setName(Combo1, "Combo1");
    for (const Choice &choice : row.choices)
        Combo1->addItem(QLatin1String(choice.caption));
    return Combo1;
}

QToolButton *ToolForm::newHelpMark(int hint, QWidget *parent)
{
    auto *const mark = new QToolButton(parent);
    mark->setObjectName(QStringLiteral("ImageHelp(%1)").arg(hint));
    mark->setIcon(programIcon(QStringLiteral("help")));
    mark->setAutoRaise(true);
    mark->setFocusPolicy(Qt::TabFocus); // a click leaves the focus in the field
    mark->setAccessibleName(QLatin1String(m_tool.hints[size_t(hint)].title));
    connect(mark, &QToolButton::clicked, this, [this, hint] { openHint(hint); });
    m_helpMarks.resize(qMax(m_helpMarks.size(), qsizetype(hint + 1)));
    m_helpMarks[hint] = mark;
    return mark;
}

void ToolForm::buildMoreFlags(QWidget *parent, QGridLayout &grid)
{
    CheckMoreFlags = new QCheckBox(QStringLiteral("More Flags:"), parent);
    setName(CheckMoreFlags, "CheckMoreFlags");
    TextMoreFlags = new QLineEdit(parent);
    setName(TextMoreFlags, "TextMoreFlags");
    TextMoreFlags->setEnabled(false);
    connect(CheckMoreFlags, &QCheckBox::toggled, TextMoreFlags, &QWidget::setEnabled);
    const int line = grid.rowCount();
    grid.addWidget(CheckMoreFlags, line, LabelColumn);
    grid.addWidget(TextMoreFlags, line, ValueColumn, 1, -1);
}

void ToolForm::buildButtons()
{
    CommandRevert = newButton("CommandRevert", "&Revert to Default");
    CommandAnalyze = newButton("CommandAnalyze", "&Analyze");
    CommandExit = newButton("CommandExit", "E&xit");
    auto *const buttons = new QHBoxLayout;
    buttons->addWidget(CommandRevert);
    buttons->addWidget(CommandAnalyze);
    buttons->addStretch();
    buttons->addWidget(CommandExit);
    m_all->addLayout(buttons);
}

void ToolForm::connectControls()
{
    connect(CommandRevert, &QPushButton::clicked, this, [this] { revert(); });
    connect(CommandAnalyze, &QPushButton::clicked, this, &ToolForm::analyze);
    connect(CommandExit, &QPushButton::clicked, this, &QWidget::close);
    connect(Frame1, &HintPanel::closeRequested, this, &ToolForm::closeHint);
    if (Combo1) // choosing the chosen item again counts too
        connect(Combo1, &QComboBox::activated, this, &ToolForm::writeChoice);
}

} // namespace ardiphon
