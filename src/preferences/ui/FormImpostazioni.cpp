#include "preferences/ui/FormImpostazioni.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/EditorSettings.h"
#include "platform/Dialogs.h"
#include "preferences/SettingsValues.h"
#include "preferences/ui/AssociationSheet.h"
#include "preferences/ui/ColorSheet.h"
#include "preferences/ui/DirectorySheet.h"
#include "preferences/ui/GeneralSheet.h"
#include "preferences/ui/StudioSheet.h"
#include "preferences/ui/TextSheet.h"

#include <QBoxLayout>
#include <QPushButton>
#include <QStackedLayout>

namespace ardiphon {

namespace {

struct SheetButton
{
    const char *name;
    const char *caption;
};

// In the order of the sheets.
constexpr SheetButton sheetButtons[] = {
    {"mostraGeneral", "&General"},     {"mostraAssociation", "&Files Association"},
    {"mostraText", "&Text"},           {"mostraColors", "&Colors"},
    {"mostraDirectory", "&Directory"}, {"mostraStudio", "St&udio"},
};
constexpr int DirectoryIndex = 4;

QString buttonStyle(bool chosen)
{
    const auto back =
        chosen ? QStringLiteral("rgb(233, 239, 243)") : QStringLiteral("rgb(165, 175, 203)");
    return QStringLiteral("QPushButton { background-color: %1; color: black; padding: 6px 12px;"
                          "  border: 1px solid rgb(110, 120, 150); border-radius: 3px }"
                          "QPushButton:focus { border: 1px solid black }")
        .arg(back);
}

} // namespace

FormImpostazioni::FormImpostazioni(ProgramContext &program, const EditorViews &views,
                                   const QString &caller, QWidget *owner)
    : QDialog(owner), m_program(program), m_views(views), m_editors(openEditors(views, caller))
{
    program.config.SettingsCaller = caller;
    setObjectName(QStringLiteral("FormImpostazioni"));
    setWindowTitle(QStringLiteral("Settings"));
    setModal(true);
    layOut(makeSheets());
    showSheet(DirectoryIndex);
}

QList<QWidget *> FormImpostazioni::makeSheets()
{
    ConfigurationBlock &config = m_program.config;
    m_general = new GeneralSheet(config, this);
    m_text = new TextSheet(config, m_program.dialogs, this);
    return {m_general,
            new AssociationSheet(m_program.dialogs, this),
            m_text,
            new ColorSheet(config, m_program.dialogs, m_editors, this),
            new DirectorySheet(config, m_program.dialogs, this),
            new StudioSheet(config, {&m_views.LEDIT1, &m_views.LEDIT2}, this)};
}

void FormImpostazioni::layOut(const QList<QWidget *> &sheets)
{
    auto *const all = new QVBoxLayout(this);
    auto *const choices = new QHBoxLayout;
    m_sheets = new QStackedLayout;
    for (int index = 0; index < sheets.size(); ++index) {
        auto *const choice = new QPushButton(QLatin1String(sheetButtons[index].caption), this);
        choice->setObjectName(QLatin1String(sheetButtons[index].name));
        connect(choice, &QPushButton::clicked, this, [this, index] { showSheet(index); });
        choices->addWidget(choice);
        m_sheetButtons.append(choice);
        m_sheets->addWidget(sheets[index]);
    }
    auto *const Command1 = new QPushButton(QStringLiteral("&Save and Exit"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, &FormImpostazioni::save);
    auto *const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(Command1);

    all->addLayout(choices);
    all->addLayout(m_sheets);
    all->addLayout(buttons);
    resize(sizeHint().expandedTo({620, 0}));
    setMinimumWidth(width());
    setFixedHeight(height()); // only the paths need more width
}

void FormImpostazioni::showSheet(int index)
{
    m_sheets->setCurrentIndex(index);
    for (int each = 0; each < m_sheetButtons.size(); ++each) {
        m_sheetButtons[each]->setStyleSheet(buttonStyle(each == index));
        m_sheetButtons[each]->setEnabled(each != index);
    }
}

void FormImpostazioni::save()
{
    if (!m_text->take())
        return;
    for (LEditOCX *editor : m_editors)
        applyTabSize(*editor, m_program.config);
    m_general->take();
    m_views.LEDIT1.SetAutoIndent(m_general->autoIndent());
    m_views.LEDIT2.SetAutoIndent(m_general->autoIndent());
    SaveSettings(m_program.config, m_program.settings);
    if (const auto written = m_program.settings.lastWrite(); !written)
        m_program.dialogs.message({notSavedText(m_program.settings.path(), written.failure())});
    for (LEditOCX *editor : m_editors)
        editor->Redraw();
    close();
}

} // namespace ardiphon
