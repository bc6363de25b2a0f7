// What both editor windows are built of, and the commands that do the same in both.

#include "analysis/ui/AnalysisWindows.h"
#include "analysis/ui/FormAnalisi.h"
#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "audio/ui/FormPlayer.h"
#include "audio/ui/FormSNDInfo.h"
#include "compile/ui/CompileContext.h"
#include "documents/Headers.h"
#include "documents/ui/EditorWindow.h"
#include "documents/ui/RecentMenu.h"
#include "documents/ui/ToolToggles.h"
#include "help/ui/FormAbout.h"
#include "help/ui/FormHelp.h"
#include "help/ui/FormManual.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/EditorSettings.h"
#include "language/ui/FontSizeMenu.h"
#include "language/ui/KeywordHelp.h"
#include "navigation/ui/Definitions.h"
#include "platform/DesktopTools.h"
#include "printing/ui/FormImpostaMargini.h"

#include <QLabel>
#include <QMenu>
#include <QToolBar>
#include <QTreeWidget>

namespace ardiphon {

LEditOCX *EditorWindow::newEditor(const QString &name, ViewLanguage language)
{
    auto *editor = new LEditOCX(centralWidget());
    editor->setObjectName(name);
    editor->ClearState(TextState);
    applySettings(*editor, config());
    editor->SetGetTokenColors([this, language](TokenKind kind, const QString &text) {
        return GetTokenColors(config(), language, kind, text);
    });
    return editor;
}

QTreeWidget *EditorWindow::newTree(const QString &name, QWidget *parent)
{
    auto *tree = new QTreeWidget(parent ? parent : centralWidget());
    tree->setObjectName(name);
    tree->setHeaderHidden(true);
    tree->setRootIsDecorated(false);
    tree->setTextElideMode(Qt::ElideMiddle);
    QPalette palette = tree->palette();
    palette.setColor(QPalette::Base, Qt::white);
    tree->setPalette(palette);
    return tree;
}

QLabel *EditorWindow::newLabel(const QString &name, const QString &caption)
{
    auto *label = new QLabel(caption, centralWidget());
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText); // a file name may look like markup
    return label;
}

QToolBar *EditorWindow::newToolbar(const QString &name, int iconSize)
{
    auto *toolbar = new QToolBar(centralWidget());
    toolbar->setMovable(false);
    toolbar->setObjectName(name);
    toolbar->setIconSize({iconSize, iconSize});
    return toolbar;
}

void EditorWindow::addCommands(std::span<const Command> rows)
{
    m_commands.add(editorCommands());
    m_commands.add(rows);
    addHeaders();
    m_commands.addGroup("menuLastFile", m_recent->entries());
    m_commands.addGroup("menuFontSize", m_fontSizes->entries());
}

void EditorWindow::addHeaders()
{
    QList<QAction *> actions;
    for (const Header &header : headers()) {
        m_commands.add({header.name, header.caption});
        m_commands.bind(header.name, this, [this, &header] { insertText(headerText(header)); });
        actions.append(m_commands.action(header.name));
    }
    m_commands.addGroup("menuHeaders", actions);
}

void EditorWindow::bindCommon()
{
    m_commands.bind("menuFileEsci", this, [this] {
        config().FormCSDClosing = true;
        close();
    });
    m_commands.bind("buttonDefaultDir", this, [this] { m_files.returnToWorkingDirectory(); });
    m_commands.bind("buttonCarattereMeno", m_fontSizes, &FontSizeMenu::stepDown);
    m_commands.bind("buttonCaratterePiu", m_fontSizes, &FontSizeMenu::stepUp);
    connect(m_fontSizes, &FontSizeMenu::chosen, this, &EditorWindow::applyFontSize);
    bindPopup();
    bindHelp();
    bindSound();
    bindAnalysis();
    bindPrograms();
    bindHalves();
    bindMargins();
}

void EditorWindow::bindPopup()
{
    m_commands.bindTo("menuPopupUndo", "menuModificaUndo");
    m_commands.bindTo("menuPopupRedo", "menuModificaRedo");
    m_commands.bindTo("menuPopupTaglia", "menuModificaTaglia");
    m_commands.bindTo("menuPopupCopia", "menuModificaCopia");
    m_commands.bindTo("menuPopupIncolla", "menuModificaIncolla");
    m_commands.bindTo("menuPopupSelezionaTutto", "menuModificaSelezionaTutto");
    m_commands.bindTo("menuToolsBookmark", "menuPopupBookmark");
    m_commands.bindTo("menuToolsRemoveBookmark", "menuPopupRemoveBookmark");
    m_commands.bindTo("menuToolsRemoveAllBookmark", "menuPopupRemoveAllBookmarks");
}

void EditorWindow::bindHelp()
{
    const auto ask = [this](const char *name, void (KeywordHelp::*request)()) {
        m_commands.bind(name, this, [this, request] { (m_help.get()->*request)(); });
    };
    ask("menuInfoCsoundHelp", &KeywordHelp::helpIndex);
    ask("menuInfoCSoundAVHelp", &KeywordHelp::csoundAvHelp);
    ask("buttonOpcodeHelp", &KeywordHelp::opcodeHelp);
    ask("buttonDirectHtml", &KeywordHelp::htmlHelp);
    ask("menuPopupOpcodeHelp", &KeywordHelp::menuPopupOpcodeHelp);
    if (m_commands.has("buttonFlagsHelp"))
        ask("buttonFlagsHelp", &KeywordHelp::flagsHelp);
    m_commands.bind("menuInfoArdiphonHelp", this, [this] { FormHelp(this).exec(); });
    m_commands.bind("menuInfoAbout", this,
                    [this] { FormAbout(config().Words.OpcodeHelpVersion, this).exec(); });
}

void EditorWindow::bindSound()
{
    m_commands.bind("menuSndInfo", this, [this] { FormSNDInfo(program().dialogs, this).exec(); });
    m_commands.bind("menuPlayer", this,
                    [this] { FormPlayer(config(), program().dialogs, this).exec(); });
}

void EditorWindow::bindAnalysis()
{
    const auto bind = [this](const char *name, const AnalysisTool &tool) {
        m_commands.bind(name, this, [this, &tool] {
            showTool(tool, ToolContext::real(config(), program().dialogs), this);
        });
    };
    bind("menuHetro", Hetro);
    bind("menuLPAnal", LPAnal);
    bind("menuPVAnal", PVAnal);
    bind("menuPVLook", PVLook);
    bind("menuCVAnal", CVAnal);
    bind("menuDNoise", DNoise);
    m_commands.bind("buttonAnalisi", this, [this] {
        FormAnalisi(ToolContext::real(config(), program().dialogs), this).exec();
    });
}

void EditorWindow::bindPrograms()
{
    m_commands.bind("menuCommandLine", this, [] { StartCommandPrompt(); });
    m_commands.bind("buttonCalculator", this, [] { StartCalculator(); });
}

CompileContext EditorWindow::compileContext()
{
    return {config(), m_program.dialogs, this, manualViewer};
}

void EditorWindow::bindHalves()
{
    const auto bind = [this](const char *name, ScreenHalf half) {
        m_commands.bind(name, this, [this, half] { moveToHalf(half); });
    };
    bind("menuWindowUp", ScreenHalf::Upper);
    bind("menuWindowDown", ScreenHalf::Lower);
    bind("menuWindowLeft", ScreenHalf::Left);
    bind("menuWindowRight", ScreenHalf::Right);
}

void EditorWindow::bindMargins()
{
    m_commands.bind("menuFileMargineStampa", this,
                    [this] { FormImpostaMargini(config(), program().dialogs, this).exec(); });
}

void EditorWindow::bindSearch(const QList<ServedEditor> &editors,
                              std::function<void(SearchKind)> open)
{
    m_search = new SearchWindows(config(), m_program.dialogs, editors, *this);
    const auto search = [this, &open](const char *name, SearchKind kind) {
        m_commands.bind(name, m_search, [open, kind] { open(kind); });
    };
    search("menuModificaTrova", SearchKind::Find);
    search("menuModificaSostituisci", SearchKind::Replace);
    search("menuModificaTrovaRiga", SearchKind::FindLine);

    m_definitions = new Definitions(*editors.front().editor, config().Words,
                                    *m_commands.action("menuPopupDefinition"),
                                    *m_commands.action("menuPopupReference"));
    m_commands.bind("menuPopupDefinition", m_definitions, &Definitions::GoToDefinition);
    m_commands.bind("menuPopupReference", m_definitions, &Definitions::GoToReference);
}

std::optional<SearchKind> EditorWindow::searchKindOf(ViewKey key)
{
    switch (key) {
    case ViewKey::Find:
        return SearchKind::Find;
    case ViewKey::Replace:
        return SearchKind::Replace;
    case ViewKey::FindLine:
        return SearchKind::FindLine;
    default:
        return std::nullopt;
    }
}

void EditorWindow::bindTools(ToolToggles &toggles)
{
    for (const Tool *tool : toggles.tools())
        m_commands.bind(tool->command, &toggles, [&toggles, tool] { toggles.toggle(*tool); });
    connect(findChild<QMenu *>(QStringLiteral("menuWindow")), &QMenu::aboutToShow, &toggles,
            [this, &toggles] {
                for (const Tool *tool : toggles.tools())
                    m_commands.action(tool->command)->setChecked(config().*tool->visible);
            });
    m_commands.bind("menuWindowAllTools", &toggles, &ToolToggles::hideOrRestoreAll);
    m_commands.bind("menuWindowRestore", &toggles, &ToolToggles::restoreAll);
    connect(&toggles, &ToolToggles::arrangeDue, this, &EditorWindow::arrangeWindow);
}

} // namespace ardiphon
