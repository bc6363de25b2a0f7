// What the commands and keys of the CSD window do.

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "compile/ui/Launchers.h"
#include "documents/DocumentRules.h"
#include "documents/Headers.h"
#include "documents/ui/CsdDocument.h"
#include "documents/ui/FormCSD.h"
#include "documents/ui/RecentMenu.h"
#include "documents/ui/SplitMirror.h"
#include "documents/ui/TagPanel.h"
#include "documents/ui/ToolToggles.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/EditorPopup.h"
#include "language/ui/HelpPanels.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/Bookmarks.h"
#include "navigation/ui/Instruments.h"
#include "navigation/ui/SearchWindows.h"
#include "platform/ui/FileProperties.h"
#include "platform/ui/TitleText.h"
#include "printing/ui/PrintEntries.h"

#include <functional>

namespace ardiphon {

void FormCSD::bindDocument()
{
    CommandSet &set = commands();
    set.bind("menuFileNuovaOrchestra", m_document, &CsdDocument::New);
    set.bind("menuFileApriOrchestra", m_document, &CsdDocument::Open);
    set.bind("menuFileSalvaOrchestra", m_document, &CsdDocument::Save);
    set.bind("menuFileSalvaOrchestraNome", m_document, &CsdDocument::SaveAs);
    set.bind("menuFileImportaORCSCO", m_document, &CsdDocument::ImportProject);
    set.bind("menuFileConvertToORCSCO", m_document, &CsdDocument::ExportToProject);
    set.bind("menuFileProprieta", m_document, &CsdDocument::Properties);

    set.bind("menuFileStampaOrchestra", this, [this] {
        const PrintEntries entries(config(), program().dialogs, *LEDIT1);
        entries.printDocument({*LEDIT1, config().CSDFileName});
    });

    connect(m_document, &CsdDocument::propertiesDue, this,
            [this](const QString &path) { ShowFileProperties(this, path); });
    connect(m_document, &CsdDocument::titleDue, this, &FormCSD::writeTitle);
    connect(m_document, &CsdDocument::programFirstTitleDue, this,
            [this] { setWindowTitle(titleText(programFirstTitle(config().CSDFileName))); });
    connect(m_document, &CsdDocument::projectWindowDue, this,
            [this] { handOver(program().windows.showFormORCSCO); });
    connect(m_document, &CsdDocument::begun, this, [this] { setSplit(false); });
    connect(m_document, &CsdDocument::begun, m_tags, &TagPanel::clear);
    connect(m_document, &CsdDocument::begun, m_panels, &HelpPanels::clear);
    connect(m_document, &CsdDocument::loaded, this, &FormCSD::textReplaced);
    connect(m_document, &CsdDocument::opened, &recent(), &RecentMenu::refresh);
    connect(&recent(), &RecentMenu::chosen, m_document, &CsdDocument::OpenRecent);
}

/// The entries of the menu act on the first view, whichever has the focus. Which view each of them
/// marks as changed is as users of the program know it: Copy marks the second.
void FormCSD::bindEditing()
{
    CommandSet &set = commands();
    const auto edit = [this, &set](const char *name, auto operation) {
        set.bind(name, this, [this, operation] {
            std::invoke(operation, LEDIT1);
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

    for (LEditOCX *view : {LEDIT1, LEDIT2})
        new EditorPopup(*view, *menuPopup,
                        [this, view] { preparePopup(*view, ViewLanguage::Csd); });
    bindViewKeys(LEDIT1, ViewPosition::First);
    bindViewKeys(LEDIT2, ViewPosition::Second);
}

void FormCSD::bindNavigation()
{
    bindSearch({{CsdCaller, LEDIT1}}, [this](SearchKind kind) { search().open(kind, CsdCaller); });
    commands().bind("menuPopupLastPosition", this, [] {}); // no position is kept to go back to
    connect(&search(), &SearchWindows::replaced, m_mirror, &SplitMirror::copyFirstToSecond);
}

void FormCSD::bindTools()
{
    CommandSet &set = commands();
    set.bind("menuCSound", this, [this] { launchCsdCompile(compileContext(), *LEDIT1); });
    set.bind("menuToolsWinsound", this, [this] { launchCsdWinsound(compileContext(), *LEDIT1); });
    set.bind("menuCSoundAV", this, [this] { launchCsdCSoundAV(compileContext(), *LEDIT1); });

    set.bind("menuPopupBookmark", m_bookmarks, &Bookmarks::InsertBookmark);
    set.bind("menuPopupRemoveBookmark", m_bookmarks, &Bookmarks::RemoveBookmark);
    set.bind("menuPopupRemoveAllBookmarks", m_bookmarks, &Bookmarks::RemoveAllBookmarks);
    connect(m_bookmarks, &Bookmarks::visited, LEDIT1, qOverload<>(&QWidget::setFocus));

    connect(m_tags, &TagPanel::inserted, m_mirror, &SplitMirror::copyFirstToSecond);
    set.bind("buttonSplit", this, &FormCSD::setSplit);
    EditorWindow::bindTools(*m_tools);
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
    case ViewKey::FocusFirstView:
        LEDIT1->setFocus();
        break;
    case ViewKey::FocusSecondView:
        LEDIT2->setFocus();
        break;
    default:
        navigateByKey(view, meaning);
        followKey(*view, ViewLanguage::Csd, meaning);
    }
}

void FormCSD::navigateByKey(LEditOCX *view, ViewKey key)
{
    if (const auto kind = searchKindOf(key))
        search().open(*kind, CsdCaller, *view, *view);
    switch (key) {
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
