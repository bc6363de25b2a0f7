#include "preferences/ui/StudioSheet.h"

#include "app/ConfigurationBlock.h"
#include "language/editor/LEditOCX.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>
#include <QStyle>

namespace ardiphon {

/// A check, the setting that it stands for, and what the user should know about it.
struct StudioSheet::Check
{
    const char *name;
    const char *caption;
    const char *note;
    bool ConfigurationBlock::*field;
};

const StudioSheet::Check StudioSheet::checks[] = {
    {"CheckColoursByMeaning", "Colours by meaning",
     "Draws comments, texts of several lines, opcodes of your own, p-fields, labels and macros as "
     "Csound reads them.",
     &ConfigurationBlock::ColoursByMeaning},
    {"CheckCompletionWhileTyping", "Propose words while typing",
     "Tab takes what is proposed. Ctrl+Space asks for it at any time.",
     &ConfigurationBlock::CompletionWhileTyping},
    {"CheckArgumentHints", "Show the arguments at the caret",
     "Shows what an opcode takes while you write its arguments.",
     &ConfigurationBlock::ArgumentHints},
    {"CheckPointerHelp", "Explain what the pointer rests on",
     "Shows what a name is: an opcode, a variable, a table, an instrument.",
     &ConfigurationBlock::PointerHelp},
    {"CheckMarkOccurrences", "Mark the name at the caret everywhere",
     "Marks the places in view where the same name is meant.",
     &ConfigurationBlock::MarkOccurrences},
    {"CheckIndentByBlocks", "Indent by blocks",
     "Indents a new line in an instrument, a condition or a loop.",
     &ConfigurationBlock::IndentByBlocks},
};

StudioSheet::StudioSheet(ConfigurationBlock &config, const QList<LEditOCX *> &editors,
                         QWidget *parent)
    : QGroupBox(QStringLiteral("Studio"), parent), m_config(config), m_editors(editors)
{
    setObjectName(QStringLiteral("FrameStudio"));
    auto *const rows = new QVBoxLayout(this);
    rows->setSpacing(0);
    for (const Check &check : checks)
        addCheck(*rows, check);
    rows->addStretch();
}

void StudioSheet::addCheck(QVBoxLayout &rows, const Check &check)
{
    auto *const box = new QCheckBox(QLatin1String(check.caption), this);
    box->setObjectName(QLatin1String(check.name));
    box->setAccessibleDescription(QLatin1String(check.note));
    box->setChecked(m_config.*check.field);
    connect(box, &QCheckBox::toggled, this, [this, &check](bool on) { take(check, on); });
    auto *const note = new QLabel(QLatin1String(check.note), this);
    note->setWordWrap(true);
    note->setIndent(style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                    style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing));
    rows.addWidget(box);
    rows.addWidget(note);
    rows.addSpacing(6);
}

void StudioSheet::take(const Check &check, bool on)
{
    m_config.*check.field = on;
    for (LEditOCX *editor : m_editors)
        editor->Redraw();
}

} // namespace ardiphon
