#include "preferences/ui/ColorSheet.h"

#include "app/ConfigurationBlock.h"
#include "language/editor/LEditOCX.h"
#include "platform/Dialogs.h"
#include "preferences/ui/ColorPatch.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace ardiphon {

/// A patch, the colour that it shows, and the operation that passes that colour to an editor.
/// Without an operation the editors read the colour themselves when they draw.
struct ColorSheet::Patch
{
    const char *name = nullptr;
    Color ConfigurationBlock::*field = nullptr;
    void (LEditOCX::*operation)(Color) = nullptr;
};

const ColorSheet::Patch ColorSheet::patches[] = {
    {"picBackColor", &ConfigurationBlock::ColorBackground, &LEditOCX::SetBackColor},
    {"picForeColor", &ConfigurationBlock::ColorText},
    {"picOrchestra", &ConfigurationBlock::ColorOrchestra},
    {"picOrchestraBK", &ConfigurationBlock::ColorOrchestraBK},
    {"picScore", &ConfigurationBlock::ColorCSD},
    {"picScoreBK", &ConfigurationBlock::ColorCSDBK},
    {"picRem", &ConfigurationBlock::ColorReminders, &LEditOCX::SetForeColor},
    {"picFiles", &ConfigurationBlock::ColorFiles},
    {"picFilesBK", &ConfigurationBlock::ColorFilesBK},
    {"picMacros", &ConfigurationBlock::ColorMacro},
    {"picMacrosBK", &ConfigurationBlock::ColorMacroBK},
    {"picSelectionFore", &ConfigurationBlock::ColorSelectionFore, &LEditOCX::SetSelectionForeColor},
    {"picSelectionBack", &ConfigurationBlock::ColorSelectionBack, &LEditOCX::SetSelectionBackColor},
    {"picInstrEndin", &ConfigurationBlock::ColorInstrEndin},
    {"picInstrEndinBK", &ConfigurationBlock::ColorInstrEndinBK},
};

namespace {

/// A row of the sheet: what it colours, and the patches of its two colours; null for none.
struct Row
{
    const char *label;
    const char *fore;
    const char *back;
};

constexpr Row textRows[] = {
    {"BackColor:", nullptr, "picBackColor"},
    {"ForeColor:", "picForeColor", nullptr},
};

constexpr Row syntaxRows[] = {
    {"Orchestra Opcode:", "picOrchestra", "picOrchestraBK"},
    {"CSD Tags:", "picScore", "picScoreBK"},
    {"Reminders:", "picRem", nullptr},
    {"Files (\"...\"):", "picFiles", "picFilesBK"},
    {"Macros:", "picMacros", "picMacrosBK"},
    {"Selection:", "picSelectionFore", "picSelectionBack"},
    {"Instr - Endin", "picInstrEndin", "picInstrEndinBK"},
};

} // namespace

ColorSheet::ColorSheet(ConfigurationBlock &config, Dialogs &dialogs,
                       const QList<LEditOCX *> &editors, QWidget *parent)
    : QGroupBox(QStringLiteral("Colors (Click on color to change it)"), parent),
      m_config(config),
      m_dialogs(dialogs),
      m_editors(editors)
{
    setObjectName(QStringLiteral("FrameColors"));
    layOut();
    showColors();
}

void ColorSheet::layOut()
{
    QGroupBox *const text = newTextGroup(); // the keyboard reaches them in this order
    QGroupBox *const syntax = newSyntaxGroup();
    auto *const Command4 = new QPushButton(QStringLiteral("Default"), this);
    Command4->setObjectName(QStringLiteral("Command4"));
    connect(Command4, &QPushButton::clicked, this, &ColorSheet::restoreDefaults);
    auto *const left = new QVBoxLayout;
    left->addWidget(text);
    left->addStretch();
    left->addWidget(Command4, 0, Qt::AlignLeft);
    auto *const all = new QHBoxLayout(this);
    all->addLayout(left);
    all->addWidget(syntax, 1);
}

QGroupBox *ColorSheet::newTextGroup()
{
    auto *const text = newGroup(QStringLiteral("FrameTextColors"), QStringLiteral("Text colors"));
    auto *const grid = new QGridLayout(text);
    int line = 0;
    for (const Row &row : textRows) {
        const QString label = QLatin1String(row.label);
        grid->addWidget(new QLabel(label, text), line, 0);
        addPatch(*grid, line++, 1, row.fore ? row.fore : row.back, label);
    }
    grid->setRowStretch(line, 1);
    return text;
}

QGroupBox *ColorSheet::newSyntaxGroup()
{
    auto *const syntax =
        newGroup(QStringLiteral("FrameSyntax"), QStringLiteral("Syntax Highlight"));
    auto *const grid = new QGridLayout(syntax);
    grid->addWidget(new QLabel(QStringLiteral("Fore:"), syntax), 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Back:"), syntax), 0, 2);
    int line = 1;
    for (const Row &row : syntaxRows) {
        const QString label = QLatin1String(row.label);
        grid->addWidget(new QLabel(label, syntax), line, 0);
        addPatch(*grid, line, 1, row.fore, label + QStringLiteral(" Fore"));
        if (row.back)
            addPatch(*grid, line, 2, row.back, label + QStringLiteral(" Back"));
        ++line;
    }
    grid->setRowStretch(line, 1);
    grid->setColumnStretch(3, 1);
    grid->setHorizontalSpacing(12);
    return syntax;
}

QGroupBox *ColorSheet::newGroup(const QString &name, const QString &title)
{
    auto *const group = new QGroupBox(title, this);
    group->setObjectName(name);
    return group;
}

void ColorSheet::addPatch(QGridLayout &grid, int row, int column, const char *name,
                          const QString &description)
{
    auto *const patch = new ColorPatch(grid.parentWidget());
    patch->setObjectName(QLatin1String(name));
    patch->setAccessibleName(description);
    grid.addWidget(patch, row, column);
    const Patch &entry = patchNamed(name);
    connect(patch, &QAbstractButton::clicked, this, [this, &entry] { pick(entry); });
}

const ColorSheet::Patch &ColorSheet::patchNamed(const char *name)
{
    return *std::find_if(std::begin(patches), std::end(patches),
                         [name](const Patch &patch) { return qstrcmp(patch.name, name) == 0; });
}

ColorPatch *ColorSheet::control(const Patch &patch) const
{
    return findChild<ColorPatch *>(QLatin1String(patch.name));
}

void ColorSheet::showColors()
{
    for (const Patch &patch : patches)
        control(patch)->setColor(m_config.*patch.field);
}

/// Cancel leaves the patch as it is; the steps after the question are done in any case.
void ColorSheet::pick(const Patch &patch)
{
    if (const auto chosen = m_dialogs.color(m_lastPicked)) {
        m_lastPicked = *chosen;
        control(patch)->setColor(*chosen);
    }
    m_config.*patch.field = control(patch)->color();
    if (patch.operation)
        for (LEditOCX *editor : m_editors)
            (editor->*patch.operation)(m_config.*patch.field);
    repaintEditors();
    if (patch.field == &ConfigurationBlock::ColorBackground)
        levelBackColors();
}

void ColorSheet::levelBackColors()
{
    m_config.ColorOrchestraBK = m_config.ColorCSDBK = m_config.ColorFilesBK =
        m_config.ColorMacroBK = m_config.ColorInstrEndinBK = m_config.ColorBackground;
    showColors();
}

void ColorSheet::restoreDefaults()
{
    ResetColors(m_config);
    showColors();
    for (LEditOCX *editor : m_editors)
        for (const Patch &patch : patches)
            if (patch.operation)
                (editor->*patch.operation)(m_config.*patch.field);
    repaintEditors();
}

void ColorSheet::repaintEditors() const
{
    for (LEditOCX *editor : m_editors)
        editor->Redraw();
}

} // namespace ardiphon
