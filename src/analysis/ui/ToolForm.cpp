#include "analysis/ui/ToolForm.h"

#include "analysis/ui/HintPanel.h"
#include "analysis/ui/NumericFields.h"
#include "app/ConfigurationBlock.h"
#include "app/ui/PathLabel.h"
#include "platform/StartDetached.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace ardiphon {

namespace {

/// Whether \a widget is a control that should not be covered only in part.
bool isControl(const QWidget &widget)
{
    return qobject_cast<const QLineEdit *>(&widget) || qobject_cast<const QComboBox *>(&widget) ||
           qobject_cast<const QAbstractButton *>(&widget) || qobject_cast<const QLabel *>(&widget);
}

} // namespace

/// The text of the row's field when the user has changed nothing; the combo box may decide it.
QString ToolForm::initialOf(const ToolRow &row) const
{
    if (row.choices.empty())
        return QLatin1String(row.initial);
    const int item = Combo1->currentIndex();
    return item < 0 ? QString() : QLatin1String(row.choices[size_t(item)].initial);
}

/// The output's suffix, by the format that is chosen.
const char *ToolForm::suffix() const
{
    for (qsizetype i = 0; i < m_formats.size(); ++i)
        if (m_formats[i]->isChecked())
            return m_tool.formats[size_t(i)].suffix;
    return m_tool.formats.front().suffix;
}

ToolValues ToolForm::values() const
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

std::optional<QString> ToolForm::askForInput()
{
    return m_context.dialogs.openFile(
        {QStringLiteral("Input File Name"), QLatin1String(m_tool.inputFilter), QString()});
}

void ToolForm::browse()
{
    if (const auto path = askForInput())
        takeInput(*path);
}

void ToolForm::browseNoise()
{
    if (const auto path = askForInput())
        LabelNoise->showPath(*path);
}

void ToolForm::takeInput(const QString &path)
{
    LabelInput->showPath(path);
    if (TextOutput)
        TextOutput->setText(withSuffix(path, suffix()));
    for (const RowControls &controls : m_rows)
        if (*controls.row->proposed)
            controls.text->setText(withSuffix(path, controls.row->proposed));
}

void ToolForm::writeChoice()
{
    for (const RowControls &controls : m_rows)
        if (controls.text && !controls.row->choices.empty())
            controls.text->setText(initialOf(*controls.row));
}

void ToolForm::revert()
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
    if (CheckMoreFlags)
        revertMoreFlags();
}

void ToolForm::revertMoreFlags()
{
    TextMoreFlags->clear();
    CheckMoreFlags->setChecked(false);
}

void ToolForm::analyze()
{
    CommandAnalyze->setFocus(); // so the access key leaves an empty field too
    const auto obstacle = startObstacle(m_tool, m_context.config.FileCSound, values());
    if (obstacle)
        m_context.dialogs.message(*obstacle);
    else
        run();
}

void ToolForm::run()
{
    const QString &csound = m_context.config.FileCSound;
    const QString parameters = toolParameters(m_tool, values());
    showParameters(parameters);
    m_context.start(csound, parameters, ExecutableDirectory(csound));
}

void ToolForm::openHint(int index)
{
    const Hint &hint = m_tool.hints[size_t(index)];
    m_hint = index;
    Frame1->showHint(QLatin1String(hint.title), QLatin1String(hint.text));
    placeHint();
    for (QPushButton *button : {CommandRevert, CommandExit, CommandAnalyze})
        button->setEnabled(false);
}

void ToolForm::closeHint()
{
    Frame1->hide();
    for (QPushButton *button : {CommandRevert, CommandExit, CommandAnalyze})
        button->setEnabled(true);
}

QRect ToolForm::placeOf(const QWidget &control) const
{
    return {control.mapTo(this, QPoint(0, 0)), control.size()};
}

/// The line of the field that a hint explains.
QRect ToolForm::lineOf(int hint) const
{
    QRect line = placeOf(*m_helpMarks[hint]);
    for (const RowControls &controls : m_rows) {
        if (controls.row->hint != hint)
            continue;
        for (const QWidget *control :
             {static_cast<QWidget *>(controls.text), static_cast<QWidget *>(controls.button)})
            if (control)
                line = line.united(placeOf(*control));
    }
    return line;
}

/// Places the panel next to the line that it explains, over other lines of the same frame but not
/// over their help marks, so that another hint can be asked for.
void ToolForm::placeHint()
{
    m_all->activate();
    const QToolButton *const mark = m_helpMarks[m_hint];
    QRect room = m_all->contentsRect();
    if (const QWidget *const frame = mark->parentWidget(); frame != this)
        room.setLeft(placeOf(*frame).left());
    room.setRight(placeOf(*mark).left() - m_files->horizontalSpacing());
    QList<QRect> others;
    for (const QWidget *each : findChildren<QWidget *>())
        if (!Frame1->isAncestorOf(each) && isControl(*each))
            others.append(placeOf(*each));
    Frame1->moveTo(room, lineOf(m_hint), others);
}

void ToolForm::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && Frame1->isVisible())
        closeHint();
    else
        QDialog::keyPressEvent(event);
}

void ToolForm::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    placeHint();
}

void ToolForm::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    placeHint(); // next to the first line with a mark
}

} // namespace ardiphon
