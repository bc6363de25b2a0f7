// What the commands and keys of the CSD window do.

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "compile/ui/CsdCompileLauncher.h"
#include "documents/Headers.h"
#include "documents/ui/CsdDocument.h"
#include "documents/ui/FormCSD.h"
#include "documents/ui/RecentMenu.h"
#include "documents/ui/SplitMirror.h"
#include "documents/ui/TagPanel.h"
#include "documents/ui/ToolToggles.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/EditorPopup.h"
#include "language/ui/FontSizeMenu.h"
#include "language/ui/HelpPanels.h"
#include "language/ui/KeywordHelp.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/Bookmarks.h"
#include "navigation/ui/Definitions.h"
#include "navigation/ui/Instruments.h"
#include "navigation/ui/SearchWindows.h"
#include "platform/ui/FileProperties.h"
#include "preferences/ui/FormAbout.h"
#include "preferences/ui/FormHelp.h"

#include <QMenu>

namespace ardiphon {

void FormCSD::bindDocument()
{
    CommandSet &set = commands();
    set.bind("menuFileNuovaOrchestra", m_document, &CsdDocument::New);
    set.bind("menuFileApriOrchestra", m_document, &CsdDocument::Open);
    set.bind("menuFileSalvaOrchestra", m_document, &CsdDocument::Save);
    set.bind("menuFileSalvaOrchestraNome", m_document, &CsdDocument::SaveAs);
    set.bind("menuFileProprieta", m_document, &CsdDocument::Properties);
    set.bind("menuFileEsci", this, [this] {
        config().FormCSDClosing = true;
        close();
    });
    set.bind("buttonDefaultDir", m_document, &CsdDocument::returnToWorkingDirectory);

    connect(m_document, &CsdDocument::propertiesDue, this,
            [this](const QString &path) { ShowFileProperties(this, path); });
    connect(m_document, &CsdDocument::titleDue, this, &FormCSD::writeTitle);
    connect(m_document, &CsdDocument::projectWindowDue, this, &FormCSD::handOverToProject);
    connect(m_document, &CsdDocument::begun, this, [this] { setSplit(false); });
    connect(m_document, &CsdDocument::begun, m_tags, &TagPanel::clear);
    connect(m_document, &CsdDocument::begun, m_panels, &HelpPanels::clear);
    connect(m_document, &CsdDocument::loaded, this, &FormCSD::textReplaced);
    connect(m_document, &CsdDocument::opened, m_recent, &RecentMenu::refresh);
    connect(m_recent, &RecentMenu::chosen, m_document, &CsdDocument::OpenRecent);
}

/// The entries of the menu act on the first view, whichever has the focus. Which view each of them
/// marks as changed is as users of the program know it: Copy marks the second.
void FormCSD::bindEditing()
{
    CommandSet &set = commands();
    const auto edit = [this, &set](const char *name, auto operation) {
        set.bind(name, this, [this, operation] {
            (LEDIT1->*operation)();
            m_mirror->setView1Changed();
        });
    };
    edit("menuModificaUndo", &LEditOCX::Undo);
    edit("menuModificaRedo", &LEditOCX::Redo);
    edit("menuModificaTaglia", &LEditOCX::Cut);
    edit("menuModificaIncolla", &LEditOCX::Paste);
    set.bind("menuModificaCopia", this, [this] {
        LEDIT1->Copy();
        m_mirror->setView2Changed();
    });
    set.bind("menuModificaSelezionaTutto", LEDIT1, &LEditOCX::SelectAll);
    set.bind("menuTemplateCSD", this, [this] { insertText(csdTemplate()); });

    set.bindTo("menuPopupUndo", "menuModificaUndo");
    set.bindTo("menuPopupRedo", "menuModificaRedo");
    set.bindTo("menuPopupTaglia", "menuModificaTaglia");
    set.bindTo("menuPopupCopia", "menuModificaCopia");
    set.bindTo("menuPopupIncolla", "menuModificaIncolla");
    set.bindTo("menuPopupSelezionaTutto", "menuModificaSelezionaTutto");
    for (LEditOCX *view : {LEDIT1, LEDIT2})
        new EditorPopup(*view, *menuPopup, [this, view] { preparePopup(*view); });
    bindViewKeys(LEDIT1, ViewPosition::First);
    bindViewKeys(LEDIT2, ViewPosition::Second);
}

void FormCSD::bindNavigation()
{
    CommandSet &set = commands();
    const auto search = [this, &set](const char *name, SearchKind kind) {
        set.bind(name, m_search, [this, kind] { m_search->open(kind, CsdCaller); });
    };
    search("menuModificaTrova", SearchKind::Find);
    search("menuModificaSostituisci", SearchKind::Replace);
    search("menuModificaTrovaRiga", SearchKind::FindLine);
    connect(m_search, &SearchWindows::replaced, m_mirror, &SplitMirror::copyFirstToSecond);

    m_definitions = new Definitions(*LEDIT1, config().Words, *set.action("menuPopupDefinition"),
                                    *set.action("menuPopupReference"));
    set.bind("menuPopupDefinition", m_definitions, &Definitions::GoToDefinition);
    set.bind("menuPopupReference", m_definitions, &Definitions::GoToReference);
    set.bind("menuPopupLastPosition", this, [] {}); // no position is kept to go back to
}

void FormCSD::bindTools()
{
    CommandSet &set = commands();
    set.bind("menuCSound", this,
             [this] { launchCsdCompile(config(), program().dialogs, *LEDIT1, this); });

    set.bind("menuPopupBookmark", m_bookmarks, &Bookmarks::InsertBookmark);
    set.bind("menuPopupRemoveBookmark", m_bookmarks, &Bookmarks::RemoveBookmark);
    set.bind("menuPopupRemoveAllBookmarks", m_bookmarks, &Bookmarks::RemoveAllBookmarks);
    set.bindTo("menuToolsBookmark", "menuPopupBookmark");
    set.bindTo("menuToolsRemoveBookmark", "menuPopupRemoveBookmark");
    set.bindTo("menuToolsRemoveAllBookmark", "menuPopupRemoveAllBookmarks");
    connect(m_bookmarks, &Bookmarks::visited, LEDIT1, qOverload<>(&QWidget::setFocus));

    connect(m_tags, &TagPanel::inserted, m_mirror, &SplitMirror::copyFirstToSecond);
    set.bind("buttonCarattereMeno", m_fontSizes, &FontSizeMenu::stepDown);
    set.bind("buttonCaratterePiu", m_fontSizes, &FontSizeMenu::stepUp);
    connect(m_fontSizes, &FontSizeMenu::chosen, this, &FormCSD::applyFontSize);
    set.bind("buttonSplit", this, &FormCSD::setSplit);
}

void FormCSD::bindWindow()
{
    CommandSet &set = commands();
    for (const Tool &tool : tools())
        set.bind(tool.command, m_tools, [this, &tool] { m_tools->toggle(tool); });
    connect(findChild<QMenu *>(QStringLiteral("menuWindow")), &QMenu::aboutToShow, this, [this] {
        for (const Tool &tool : tools())
            commands().action(tool.command)->setChecked(config().*tool.visible);
    });
    set.bind("menuWindowAllTools", m_tools, &ToolToggles::hideOrRestoreAll);
    set.bind("menuWindowRestore", m_tools, &ToolToggles::restoreAll);
    connect(m_tools, &ToolToggles::arrangeDue, this, &FormCSD::arrangeWindow);

    set.bind("menuWindowUp", this, [this] { moveToHalf(ScreenHalf::Upper); });
    set.bind("menuWindowDown", this, [this] { moveToHalf(ScreenHalf::Lower); });
    set.bind("menuWindowLeft", this, [this] { moveToHalf(ScreenHalf::Left); });
    set.bind("menuWindowRight", this, [this] { moveToHalf(ScreenHalf::Right); });
}

void FormCSD::bindHelp()
{
    CommandSet &set = commands();
    const auto ask = [this, &set](const char *name, void (KeywordHelp::*request)()) {
        set.bind(name, this, [this, request] { (m_help.get()->*request)(); });
    };
    ask("menuInfoCsoundHelp", &KeywordHelp::helpIndex);
    ask("menuInfoCSoundAVHelp", &KeywordHelp::csoundAvHelp);
    ask("buttonOpcodeHelp", &KeywordHelp::opcodeHelp);
    ask("buttonFlagsHelp", &KeywordHelp::flagsHelp);
    ask("menuPopupOpcodeHelp", &KeywordHelp::menuPopupOpcodeHelp);
    set.bind("menuInfoArdiphonHelp", this, [this] { FormHelp(this).exec(); });
    set.bind("menuInfoAbout", this,
             [this] { FormAbout(config().Words.OpcodeHelpVersion, this).exec(); });
    m_panels->follow(LEDIT1);
    m_panels->follow(LEDIT2);
}

/// The entries of the popup that name the word that was clicked.
void FormCSD::preparePopup(LEditOCX &view)
{
    m_definitions->prepareEntries(view);
    commands().action("menuPopupOpcodeHelp")->setText(m_help->prepareMenu(view, ViewLanguage::Csd));
}

void FormCSD::bindViewKeys(LEditOCX *view, ViewPosition position)
{
    connect(view, &LEditOCX::KeyDown, this,
            [this, view, position](EditorKey &key) { handleViewKey(view, position, key); });
}

void FormCSD::handleViewKey(LEditOCX *view, ViewPosition position, EditorKey &key)
{
    const ViewKey meaning = csdViewKey(key.KeyCode, key.Shift, position);
    if (!reachesControl(meaning))
        key.KeyCode = 0;
    switch (meaning) {
    case ViewKey::CloseWindow:
        close();
        break;
    case ViewKey::Redo:
        view->Redo();
        break;
    case ViewKey::KeywordHelp:
        m_help->keyHelp(*view, ViewLanguage::Csd);
        break;
    case ViewKey::HelpIndex:
        m_help->keyIndex();
        break;
    case ViewKey::FocusFirstView:
        LEDIT1->setFocus();
        break;
    case ViewKey::FocusSecondView:
        if (isSplit())
            LEDIT2->setFocus();
        break;
    default:
        navigateByKey(view, meaning);
    }
}

void FormCSD::navigateByKey(LEditOCX *view, ViewKey key)
{
    switch (key) {
    case ViewKey::Find:
        return m_search->open(SearchKind::Find, CsdCaller, *view, *view);
    case ViewKey::Replace:
        return m_search->open(SearchKind::Replace, CsdCaller, *view, *view);
    case ViewKey::FindLine:
        return m_search->open(SearchKind::FindLine, CsdCaller, *view, *view);
    case ViewKey::FirstInstrument:
        return m_instruments->GoToFirstInstrument();
    case ViewKey::PreviousInstrument:
        return m_instruments->GoToPreviousInstrument();
    case ViewKey::NextInstrument:
        return m_instruments->GoToNextInstrument();
    case ViewKey::LastInstrument:
        return m_instruments->GoToLastInstrument();
    default:
        return;
    }
}

} // namespace ardiphon
