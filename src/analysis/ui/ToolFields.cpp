#include "analysis/ui/ToolFields.h"

#include "analysis/ui/NumericFields.h"
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

enum Column { LabelColumn, ValueColumn, NoteColumn, HelpColumn };

void setName(QObject *object, const char *name) { object->setObjectName(QLatin1String(name)); }

QLabel *newNote(const char *text, QWidget *parent)
{
    auto *const note = new QLabel(QLatin1String(text), parent);
    setName(note, "Label3");
    return note;
}

QAbstractButton *newSwitch(const ToolRow &row, QWidget *parent)
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

} // namespace

QPushButton *newFormButton(const char *name, const char *caption, QWidget *form)
{
    auto *const button = new QPushButton(QLatin1String(caption), form);
    setName(button, name);
    button->setAutoDefault(false);
    return button;
}

ToolFields::ToolFields(const AnalysisTool &tool, QWidget &form, QBoxLayout &all)
    : QObject(&form),
      m_tool(tool),
      m_form(form),
      m_all(all),
      m_files(new QGridLayout),
      m_numbers(new NumericFields(this))
{
    m_all.addLayout(m_files);
    m_files->setColumnStretch(ValueColumn, 1);
    buildFiles();
    buildGroups();
    if (Combo1) // choosing the chosen item again counts too
        connect(Combo1, &QComboBox::activated, this, &ToolFields::writeChoice);
}

// Building. --------------------------------------------------------------------------------------

void ToolFields::buildFiles()
{
    const auto newBrowse = [this](const char *name, void (ToolFields::*request)()) {
        QPushButton *const button = newFormButton(name, "&Browse", &m_form);
        connect(button, &QPushButton::clicked, this, request);
        return button;
    };
    LabelInput = new PathLabel(QStringLiteral("LabelInput"), &m_form);
    addFileRow("Label1", m_tool.inputLabel, LabelInput,
               newBrowse("Command1", &ToolFields::inputRequested));
    if (*m_tool.noiseLabel) {
        LabelNoise = new PathLabel(QStringLiteral("LabelNoise"), &m_form);
        addFileRow("LabelNoiseCaption", m_tool.noiseLabel, LabelNoise,
                   newBrowse("Command2", &ToolFields::noiseRequested));
    }
    if (m_tool.formats.empty())
        return;
    TextOutput = new QLineEdit(&m_form);
    setName(TextOutput, "TextOutput");
    addFileRow("Label2", m_tool.outputLabel, TextOutput, nullptr);
    if (m_tool.formats.size() > 1)
        buildFormats();
}

void ToolFields::addFileRow(const char *name, const char *caption, QWidget *file, QWidget *browse)
{
    auto *const label = new QLabel(QLatin1String(caption), &m_form);
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

void ToolFields::buildFormats()
{
    auto *const line = new QHBoxLayout;
    for (const OutputFormat &format : m_tool.formats) {
        auto *const option = new QRadioButton(QLatin1String(format.caption), &m_form);
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
void ToolFields::buildGroups()
{
    if (!*m_tool.groups.front().title) {
        buildRows(m_tool.groups.front(), &m_form, *m_files);
        return;
    }
    auto *const frames = new QHBoxLayout;
    auto *const right = new QVBoxLayout;
    m_all.addLayout(frames);
    for (const ToolGroup &group : m_tool.groups) {
        auto *const frame = new QGroupBox(QLatin1String(group.title), &m_form);
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

void ToolFields::buildRows(const ToolGroup &group, QWidget *parent, QGridLayout &grid)
{
    for (const ToolRow &row : group.rows)
        buildRow(row, parent, grid);
    if (m_tool.moreFlags && &group == &m_tool.groups.back())
        buildMoreFlags(parent, grid);
}

void ToolFields::buildRow(const ToolRow &row, QWidget *parent, QGridLayout &grid)
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

QLineEdit *ToolFields::newField(const ToolRow &row, QWidget *parent)
{
    auto *const field = new QLineEdit(parent);
    setName(field, row.text);
    if (row.number)
        m_numbers->watch(
            field, [this, &row] { return m_tool.restoresEmpty ? initialOf(row) : QString(); });
    return field;
}

QComboBox *ToolFields::newCombo(const ToolRow &row, QWidget *parent)
{
    Combo1 = new QComboBox(parent);
    setName(Combo1, "Combo1");
    for (const Choice &choice : row.choices)
        Combo1->addItem(QLatin1String(choice.caption));
    return Combo1;
}

QToolButton *ToolFields::newHelpMark(int hint, QWidget *parent)
{
    auto *const mark = new QToolButton(parent);
    mark->setObjectName(QStringLiteral("ImageHelp(%1)").arg(hint));
    mark->setIcon(programIcon(QStringLiteral("help")));
    mark->setAutoRaise(true);
    mark->setFocusPolicy(Qt::TabFocus); // a click leaves the focus in the field
    mark->setAccessibleName(QLatin1String(m_tool.hints[size_t(hint)].title));
    connect(mark, &QToolButton::clicked, this, [this, hint] { emit hintRequested(hint); });
    m_helpMarks.resize(qMax(m_helpMarks.size(), qsizetype(hint + 1)));
    m_helpMarks[hint] = mark;
    return mark;
}

void ToolFields::buildMoreFlags(QWidget *parent, QGridLayout &grid)
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

// Values. ----------------------------------------------------------------------------------------

/// The text of the row's field when the user has changed nothing; the combo box may decide it.
QString ToolFields::initialOf(const ToolRow &row) const
{
    if (row.choices.empty())
        return QLatin1String(row.initial);
    const int item = Combo1->currentIndex();
    return item < 0 ? QString() : QLatin1String(row.choices[size_t(item)].initial);
}

/// The output's suffix, by the format that is chosen.
const char *ToolFields::suffix() const
{
    for (qsizetype i = 0; i < m_formats.size(); ++i)
        if (m_formats[i]->isChecked())
            return m_tool.formats[size_t(i)].suffix;
    return m_tool.formats.front().suffix;
}

ToolValues ToolFields::values() const
{
    ToolValues values;
    for (const RowControls &controls : m_rows) {
        if (controls.text)
            values.texts.insert(controls.text->objectName(), controls.text->text());
        if (controls.button && controls.button->isChecked())
            values.on.insert(controls.button->objectName());
    }
    for (const QLineEdit *field : {TextOutput, TextMoreFlags})
        if (field)
            values.texts.insert(field->objectName(), field->text());
    for (const PathLabel *label : {LabelInput, LabelNoise})
        if (label)
            values.texts.insert(label->objectName(), label->text());
    if (CheckMoreFlags && CheckMoreFlags->isChecked())
        values.on.insert(CheckMoreFlags->objectName());
    if (Combo1)
        values.item = Combo1->currentIndex();
    return values;
}

void ToolFields::takeInput(const QString &path)
{
    LabelInput->showPath(path);
    if (TextOutput)
        TextOutput->setText(withSuffix(path, suffix()));
    for (const RowControls &controls : m_rows)
        if (*controls.row->proposed)
            controls.text->setText(withSuffix(path, controls.row->proposed));
}

void ToolFields::writeChoice()
{
    for (const RowControls &controls : m_rows)
        if (controls.text && !controls.row->choices.empty())
            controls.text->setText(initialOf(*controls.row));
}

void ToolFields::revert()
{
    QAbstractButton *firstOption = nullptr;
    for (const RowControls &controls : m_rows) {
        if (controls.text)
            controls.text->setText(initialOf(*controls.row));
        else if (!controls.row->choices.empty())
            Combo1->setCurrentIndex(0);
        if (controls.row->kind == Switch::CheckBox)
            controls.button->setChecked(false);
        else if (controls.row->kind == Switch::RadioButton && !firstOption)
            firstOption = controls.button;
    }
    if (firstOption)
        firstOption->setChecked(true);
}

// Places. ----------------------------------------------------------------------------------------

QList<QWidget *> ToolFields::lineOf(int hint) const
{
    QList<QWidget *> line{m_helpMarks[hint]};
    for (const RowControls &controls : m_rows) {
        if (controls.row->hint != hint)
            continue;
        for (QWidget *control :
             {static_cast<QWidget *>(controls.text), static_cast<QWidget *>(controls.button)})
            if (control)
                line.append(control);
    }
    return line;
}

QSize ToolFields::spacing() const
{
    return {m_files->horizontalSpacing(), m_files->verticalSpacing()};
}

} // namespace ardiphon
