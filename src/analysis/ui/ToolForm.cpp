#include "analysis/ui/ToolForm.h"

#include "analysis/ui/HintPanel.h"
#include "analysis/ui/ToolFields.h"
#include "app/ConfigurationBlock.h"
#include "app/ui/PathLabel.h"
#include "platform/StartDetached.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ardiphon {

namespace {

constexpr int LeastCharacters = 80; ///< the least width of a form, as paths are long

/// Whether \a widget is a control that should not be covered only in part.
bool isControl(const QWidget &widget)
{
    return qobject_cast<const QLineEdit *>(&widget) || qobject_cast<const QComboBox *>(&widget) ||
           qobject_cast<const QAbstractButton *>(&widget) || qobject_cast<const QLabel *>(&widget);
}

} // namespace

ToolForm::ToolForm(const AnalysisTool &tool, const ToolContext &context, QWidget *owner)
    : QDialog(owner), m_tool(tool), m_context(context), m_all(new QVBoxLayout(this))
{
    setObjectName(QLatin1String(tool.form));
    setWindowTitle(QLatin1String(tool.caption));
    m_fields = new ToolFields(tool, *this, *m_all);
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
    const int line = CommandExit->sizeHint().height() + 2 * m_fields->spacing().height();
    const int hint = Frame1->minimumSizeHint().height() + fontMetrics().lineSpacing(); // the title
    return margins.top() + margins.bottom() + line + 2 * hint;
}

QPushButton *ToolForm::newButton(const char *name, const char *caption)
{
    return newFormButton(name, caption, this);
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
    connect(m_fields, &ToolFields::inputRequested, this, &ToolForm::browse);
    connect(m_fields, &ToolFields::noiseRequested, this, &ToolForm::browseNoise);
    connect(m_fields, &ToolFields::hintRequested, this, &ToolForm::openHint);
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
        m_fields->LabelNoise->showPath(*path);
}

void ToolForm::takeInput(const QString &path) { m_fields->takeInput(path); }

void ToolForm::revert()
{
    m_fields->revert();
    if (m_fields->CheckMoreFlags)
        revertMoreFlags();
}

void ToolForm::revertMoreFlags()
{
    m_fields->TextMoreFlags->clear();
    m_fields->CheckMoreFlags->setChecked(false);
}

void ToolForm::analyze()
{
    CommandAnalyze->setFocus(); // so the access key leaves an empty field too
    const auto obstacle = startObstacle(m_tool, m_context.config.FileCSound, m_fields->values());
    if (obstacle)
        m_context.dialogs.message(*obstacle);
    else
        run();
}

void ToolForm::run()
{
    const QString &csound = m_context.config.FileCSound;
    const QString parameters = toolParameters(m_tool, m_fields->values());
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

/// Places the panel next to the line that it explains, over other lines of the same frame but not
/// over their help marks, so that another hint can be asked for.
void ToolForm::placeHint()
{
    m_all->activate();
    const QList<QWidget *> controls = m_fields->lineOf(m_hint);
    const QWidget *const mark = controls.first();
    QRect room = m_all->contentsRect();
    if (const QWidget *const frame = mark->parentWidget(); frame != this)
        room.setLeft(placeOf(*frame).left());
    room.setRight(placeOf(*mark).left() - m_fields->spacing().width());
    QList<QRect> others;
    for (const QWidget *each : findChildren<QWidget *>())
        if (!Frame1->isAncestorOf(each) && isControl(*each))
            others.append(placeOf(*each));
    QRect line;
    for (const QWidget *control : controls)
        line = line.united(placeOf(*control));
    Frame1->moveTo(room, line, others);
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
