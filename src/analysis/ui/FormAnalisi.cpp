#include "analysis/ui/FormAnalisi.h"

#include "analysis/AnalysisLauncher.h"
#include "analysis/ui/AnalysisWindows.h"
#include "app/ui/Icons.h"
#include "audio/ui/FormSNDInfo.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace ardiphon {

namespace {

// Widths, in characters.
constexpr int ButtonCharacters = 30; // leaves room for the title between the frame's buttons
constexpr int HelpCharacters = 46;

QPushButton *newButton(const QString &name, const char *caption, QWidget *parent)
{
    auto *const button = new QPushButton(QLatin1String(caption), parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

} // namespace

FormAnalisi::FormAnalisi(const ToolContext &context, QWidget *owner)
    : QDialog(owner), m_context(context)
{
    setObjectName(QStringLiteral("FormAnalisi"));
    setWindowTitle(QStringLiteral("CSound Analysis"));
    auto *const all = new QHBoxLayout(this);
    all->setSizeConstraint(QLayout::SetFixedSize); // it is as wide as what it shows
    all->addWidget(newTools());
    buildHelp();
    all->addWidget(Frame1);
}

QWidget *FormAnalisi::newTools()
{
    auto *const tools = new QWidget(this);
    auto *const grid = new QGridLayout(tools);
    grid->setContentsMargins(0, 0, 0, 0);
    int line = 0;
    for (const LauncherRow &row : launcherRows()) {
        QPushButton *const button = newButton(QLatin1String(row.name), row.caption, tools);
        button->setMinimumWidth(ButtonCharacters * fontMetrics().averageCharWidth());
        button->setIcon(programIcon(QLatin1String(row.icon)));
        connect(button, &QPushButton::clicked, this, [this, &row] { openTool(row); });
        auto *const mark = new QToolButton(tools);
        mark->setObjectName(QStringLiteral("ImageHelp(%1)").arg(line));
        mark->setIcon(programIcon(QStringLiteral("help")));
        mark->setAutoRaise(true);
        mark->setFocusPolicy(Qt::TabFocus);
        mark->setAccessibleName(QStringLiteral("Help"));
        connect(mark, &QToolButton::clicked, this, [this, &row] { showHelp(row.help); });
        grid->addWidget(button, line, 0);
        grid->addWidget(mark, line, 1);
        ++line;
    }
    QPushButton *const exit = newButton(QStringLiteral("Command12"), "E&xit", tools);
    connect(exit, &QPushButton::clicked, this, &QWidget::close);
    grid->setRowStretch(line, 1);
    grid->setRowMinimumHeight(line, grid->verticalSpacing());
    grid->addWidget(exit, line + 1, 0);
    return tools;
}

void FormAnalisi::openTool(const LauncherRow &row)
{
    if (row.tool)
        showTool(*row.tool, m_context, this);
    else
        FormSNDInfo(m_context.dialogs, this).exec();
}

void FormAnalisi::buildHelp()
{
    Frame1 = new QGroupBox(QStringLiteral("Help"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    LabelHelp = new QLabel(Frame1);
    LabelHelp->setObjectName(QStringLiteral("LabelHelp"));
    LabelHelp->setTextFormat(Qt::PlainText);
    LabelHelp->setWordWrap(true);
    LabelHelp->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    LabelHelp->setFixedWidth(HelpCharacters * fontMetrics().averageCharWidth());
    QPushButton *const close = newButton(QStringLiteral("Command1"), "Close", Frame1);
    connect(close, &QPushButton::clicked, Frame1, &QWidget::hide);
    auto *const layout = new QVBoxLayout(Frame1);
    layout->addWidget(LabelHelp, 1);
    layout->addWidget(close, 0, Qt::AlignRight);
    Frame1->hide();
}

void FormAnalisi::showHelp(const char *text)
{
    LabelHelp->setText(QLatin1String(text));
    Frame1->show();
}

} // namespace ardiphon
