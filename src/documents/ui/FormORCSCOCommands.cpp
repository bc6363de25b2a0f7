// What the commands and keys of the project's window do.

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "compile/ui/Launchers.h"
#include "documents/ui/FormORCSCO.h"
#include "documents/ui/HalfDocument.h"
#include "documents/ui/HalfView.h"
#include "documents/ui/ProjectDocument.h"
#include "documents/ui/RecentMenu.h"
#include "documents/ui/SplitterGrip.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/EditorPopup.h"
#include "language/ui/HelpPanels.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/Bookmarks.h"
#include "platform/ui/FileProperties.h"
#include "printing/ui/PrintEntries.h"

#include <QActionGroup>

namespace ardiphon {

namespace {

constexpr std::pair<Arrangement, const char *> arrangementCommands[] = {
    {Arrangement::Horizontal, "menuVisualizzaOrizzontale"},
    {Arrangement::Vertical, "menuVisualizzaVerticale"},
    {Arrangement::Orchestra, "menuVisualizzaOrchestra"},
    {Arrangement::Score, "menuVisualizzaScore"},
};

} // namespace

void FormORCSCO::bindProject()
{
    CommandSet &set = commands();
    set.bind("menuFileNuovoProgetto", m_project, &ProjectDocument::New);
    set.bind("menuFileApriProgetto", m_project, &ProjectDocument::Open);
    set.bind("menuFileSalvaProgetto", m_project, &ProjectDocument::Save);
    set.bind("menuFileSalvaProgettoNome", m_project, &ProjectDocument::SaveAs);
    set.bind("menuFileImportaCSD", m_project, &ProjectDocument::ImportCsd);
    set.bind("menuFileConvertToCSD", m_project, &ProjectDocument::ExportToCsd);

    HalfDocument *orchestra = &m_orchestra->document();
    set.bind("menuFileNuovaOrchestra", orchestra, &HalfDocument::New);
    set.bind("menuFileApriOrchestra", orchestra, &HalfDocument::Open);
    set.bind("menuFileSalvaOrchestra", orchestra, &HalfDocument::Save);
    set.bind("menuFileSalvaOrchestraNome", orchestra, &HalfDocument::SaveAs);
    HalfDocument *score = &m_score->document();
    set.bind("menuFileNuovaScore", score, &HalfDocument::New);
    set.bind("menuFileApriScore", score, &HalfDocument::Open);
    set.bind("menuFileSalvaScore", score, &HalfDocument::Save);
    set.bind("menuFileSalvaScoreNome", score, &HalfDocument::SaveAs);
    set.bind("menuFileProprieta", this, [this] {
        if (const HalfView *half = focusedHalf())
            half->document().Properties();
    });

    for (HalfDocument *half : {orchestra, score})
        connect(half, &HalfDocument::propertiesDue, this,
                [this](const QString &path) { ShowFileProperties(this, path); });
    connect(orchestra, &HalfDocument::begun, m_panels, &HelpPanels::clear);
    connect(score, &HalfDocument::begun, m_panels, &HelpPanels::clear);
    connect(m_project, &ProjectDocument::opened, &recent(), &RecentMenu::refresh);
    connect(m_project, &ProjectDocument::csdWindowDue, this,
            [this] { handOver(program().windows.showFormCSD); });
    connect(&recent(), &RecentMenu::chosen, m_project, &ProjectDocument::OpenRecent);
}

void FormORCSCO::bindPrinting()
{
    const auto entries = [this] { return PrintEntries(config(), program().dialogs, *LEDIT1); };
    const auto orchestra = [this] { return PrintSource{*LEDIT1, config().OrchestraFileName}; };
    const auto score = [this] { return PrintSource{*LEDIT2, config().ScoreFileName}; };
    CommandSet &set = commands();
    set.bind("menuFileStampaProgetto", this, [=] { entries().printProject(orchestra(), score()); });
    set.bind("menuFileStampaOrchestra", this, [=] { entries().printDocument(orchestra()); });
    set.bind("menuFileStampaScore", this, [=] { entries().printDocument(score()); });
}

/// The entries of the menu act on the editor that has the focus, and do nothing without one.
void FormORCSCO::bindEditing()
{
    const auto edit = [this](const char *name, void (LEditOCX::*operation)()) {
        commands().bind(name, this, [this, operation] {
            if (LEditOCX *editor = focusedEditor())
                (editor->*operation)();
        });
    };
    edit("menuModificaUndo", &LEditOCX::Undo);
    edit("menuModificaRedo", &LEditOCX::Redo);
    edit("menuModificaTaglia", &LEditOCX::Cut);
    edit("menuModificaCopia", &LEditOCX::Copy);
    edit("menuModificaIncolla", &LEditOCX::Paste);
    edit("menuModificaSelezionaTutto", &LEditOCX::SelectAll);
    bindView(LEDIT1, ViewLanguage::Orchestra, ViewPosition::First);
    bindView(LEDIT2, ViewLanguage::Score, ViewPosition::Second);
}

/// The menu's searches go to the editor that has the focus, those of a half's toolbar to its own.
void FormORCSCO::bindNavigation()
{
    bindSearch({{OrchestraCaller, LEDIT1}, {ScoreCaller, LEDIT2}},
               [this](SearchKind kind) { search().openForFocus(kind); });
    const auto bind = [this](const char *name, SearchKind kind, const QString &caller) {
        commands().bind(name, &search(), [this, kind, caller] { search().open(kind, caller); });
    };
    bind("buttonTrovaOrchestra", SearchKind::Find, OrchestraCaller);
    bind("buttonSostituisciOrchestra", SearchKind::Replace, OrchestraCaller);
    bind("buttonTrovaRigaOrchestra", SearchKind::FindLine, OrchestraCaller);
    bind("buttonTrovaScore", SearchKind::Find, ScoreCaller);
    bind("buttonSostituisciScore", SearchKind::Replace, ScoreCaller);
    bind("buttonTrovaRigaScore", SearchKind::FindLine, ScoreCaller);
}

void FormORCSCO::bindView(LEditOCX *view, ViewLanguage language, ViewPosition position)
{
    new EditorPopup(*view, *menuPopup, [this, view, language] { preparePopup(*view, language); });
    connect(view, &LEditOCX::KeyDown, this, [this, view, language, position](EditorKey &key) {
        handleViewKey(*view, language, position, key);
    });
}

void FormORCSCO::bindPanels()
{
    const auto bind = [this](const char *name, void (Bookmarks::*operation)()) {
        commands().bind(name, this, [this, operation] {
            if (const HalfView *half = focusedHalf())
                (half->document().bookmarks().*operation)();
        });
    };
    bind("menuPopupBookmark", &Bookmarks::InsertBookmark);
    bind("menuPopupRemoveBookmark", &Bookmarks::RemoveBookmark);
    bind("menuPopupRemoveAllBookmarks", &Bookmarks::RemoveAllBookmarks);

    commands().bind("menuWindowBarraBook", this, &FormORCSCO::toggleBookmarksPanel);
    commands().bind("menuWindowInstrument", this, &FormORCSCO::toggleInstrumentPanel);
}

void FormORCSCO::bindCompilers()
{
    const auto bind = [this](const char *name, auto launch) {
        commands().bind(name, this, [this, launch] {
            launch(compileContext(), ProjectEditors{*LEDIT1, *LEDIT2});
        });
    };
    bind("menuCSound", &launchProjectCompile);
    bind("menuToolsWinsound", &launchProjectWinsound);
    bind("menuCSoundAV", &launchProjectCSoundAV);
}

void FormORCSCO::bindArrangements()
{
    auto *oneOfFour = new QActionGroup(this);
    for (const auto &[arrangement, command] : arrangementCommands) {
        oneOfFour->addAction(commands().action(command));
        commands().bind(command, this, [this, chosen = arrangement] { arrange(chosen); });
    }
    commands().bind("menuVisualizzaReset", this, &FormORCSCO::arrangeWindow);
    connect(SplitterH, &SplitterGrip::dragged, this,
            [this](int top) { dragged(dragSplitterH(windowState(), m_layout, top)); });
    connect(SplitterV, &SplitterGrip::dragged, this,
            [this](int left) { dragged(dragSplitterV(windowState(), m_layout, left)); });
}

void FormORCSCO::handleViewKey(LEditOCX &view, ViewLanguage language, ViewPosition position,
                               EditorKey &key)
{
    const ViewKey meaning = projectViewKey(key.KeyCode, key.Shift, position);
    if (!reachesControl(meaning))
        key.KeyCode = 0;
    const QString &caller = position == ViewPosition::First ? OrchestraCaller : ScoreCaller;
    if (const auto kind = searchKindOf(meaning))
        search().open(*kind, caller, view, *LEDIT1);
    switch (meaning) {
    case ViewKey::FocusFirstView:
        LEDIT1->setFocus();
        break;
    case ViewKey::FocusSecondView:
        LEDIT2->setFocus();
        break;
    default:
        followKey(view, language, meaning);
    }
}

void FormORCSCO::checkArrangement(Arrangement chosen)
{
    for (const auto &[arrangement, command] : arrangementCommands)
        commands().action(command)->setChecked(arrangement == chosen);
}

} // namespace ardiphon
