#include "documents/ui/FormORCSCO.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "documents/Commands.h"
#include "documents/DocumentRules.h"
#include "documents/ui/HalfDocument.h"
#include "documents/ui/HalfView.h"
#include "documents/ui/ProjectArea.h"
#include "documents/ui/ProjectConversion.h"
#include "documents/ui/ProjectDocument.h"
#include "documents/ui/RecentMenu.h"
#include "documents/ui/ToolToggles.h"
#include "documents/ui/WindowPlacement.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/HelpPanels.h"
#include "navigation/ui/Bookmarks.h"
#include "platform/ui/FileProperties.h"
#include "start/ui/FormNew.h"

#include <QActionGroup>
#include <QCloseEvent>

namespace ardiphon {

namespace {

constexpr int RefreshInterval = 100; // milliseconds

constexpr std::pair<Arrangement, const char *> arrangementCommands[] = {
    {Arrangement::Horizontal, "menuVisualizzaOrizzontale"},
    {Arrangement::Vertical, "menuVisualizzaVerticale"},
    {Arrangement::Orchestra, "menuVisualizzaOrchestra"},
    {Arrangement::Score, "menuVisualizzaScore"},
};

} // namespace

FormORCSCO::FormORCSCO(ProgramContext &program)
    : EditorWindow(program, projectCommands(), projectShortcuts(), projectViewKey),
      m_area(new ProjectArea(program.config))
{
    setObjectName(QStringLiteral("FormORCSCO"));
    setWindowTitle(WindowTitle);
    setArea(m_area);
    buildDocuments();
    bindProject();
    bindHalves();
    bindEditing();
    bindPanels();
    fillBars();
    bindArrangements();
    buildTools();
    takePlacement(*this, config());
    m_project->OpenNamedOnLoad();

    Timer1.setObjectName(QStringLiteral("Timer1"));
    for (HalfView *half : {m_area->orchestra, m_area->score}) {
        connect(&Timer1, &QTimer::timeout, half, &HalfView::refresh);
        connect(half, &HalfView::refreshRequested, &Timer1, &RefreshTimer::wake);
    }
    Timer1.start(RefreshInterval);
}

// Building. --------------------------------------------------------------------------------------

void FormORCSCO::buildDocuments()
{
    LEditOCX &first = *m_area->LEDIT1;
    LEditOCX &second = *m_area->LEDIT2;
    auto *orchestraMarks = new Bookmarks(first, *m_area->Tree1, QStringLiteral("bko"), dialogs());
    auto *scoreMarks = new Bookmarks(second, *m_area->Tree2, QStringLiteral("bks"), dialogs());
    m_orchestra =
        new HalfDocument(OrchestraHalf, first, *orchestraMarks, first, program(), files(), this);
    m_score = new HalfDocument(ScoreHalf, second, *scoreMarks, first, program(), files(), this);
    m_area->setDocuments(*m_orchestra, *m_score);
    const auto chooseNew = [this] { return FormNew::choose(config(), this); };
    m_project = new ProjectDocument(*m_orchestra, *m_score, program(), files(), chooseNew, this);
}

void FormORCSCO::fillBars()
{
    fillMenus(projectMenus());
    commands().fill(*m_area->Toolbar1, projectToolbar());
    commands().fill(m_area->orchestra->toolbar(), orchestraToolbar());
    commands().fill(m_area->score->toolbar(), scoreToolbar());
}

void FormORCSCO::buildTools()
{
    m_tools = new ToolToggles(program(), {&LineNumbersTool, &OnLineHelpTool, &ToolbarTool}, this);
    m_area->groupTools(*m_tools);
    bindTools(*m_tools);
    m_tools->load();
}

// Binding. ---------------------------------------------------------------------------------------

void FormORCSCO::bindProject()
{
    CommandSet &set = commands();
    set.bind("menuFileNuovoProgetto", m_project, &ProjectDocument::New);
    set.bind("menuFileApriProgetto", m_project, &ProjectDocument::Open);
    set.bind("menuFileSalvaProgetto", m_project, &ProjectDocument::Save);
    set.bind("menuFileSalvaProgettoNome", m_project, &ProjectDocument::SaveAs);
    auto *conversion = new ProjectConversion(*m_orchestra, *m_score, program(), files(), this);
    set.bind("menuFileImportaCSD", conversion, &ProjectConversion::ImportCsd);
    set.bind("menuFileConvertToCSD", conversion, &ProjectConversion::ExportToCsd);
    connect(m_project, &ProjectDocument::opened, &recent(), &RecentMenu::refresh);
    connect(m_project, &ProjectDocument::csdWindowRequested, this,
            [this] { handOver(program().windows.showFormCSD); });
    connect(&recent(), &RecentMenu::chosen, m_project, &ProjectDocument::OpenRecent);
}

void FormORCSCO::bindHalves()
{
    CommandSet &set = commands();
    set.bind("menuFileNuovaOrchestra", m_orchestra, &HalfDocument::New);
    set.bind("menuFileApriOrchestra", m_orchestra, &HalfDocument::Open);
    set.bind("menuFileSalvaOrchestra", m_orchestra, &HalfDocument::Save);
    set.bind("menuFileSalvaOrchestraNome", m_orchestra, &HalfDocument::SaveAs);
    set.bind("menuFileNuovaScore", m_score, &HalfDocument::New);
    set.bind("menuFileApriScore", m_score, &HalfDocument::Open);
    set.bind("menuFileSalvaScore", m_score, &HalfDocument::Save);
    set.bind("menuFileSalvaScoreNome", m_score, &HalfDocument::SaveAs);
    set.bind("menuFileProprieta", this, [this] {
        if (const HalfView *half = m_area->focusedHalf())
            half->document().Properties();
    });
    for (HalfDocument *half : {m_orchestra, m_score}) {
        connect(half, &HalfDocument::propertiesRequested, this,
                [this](const QString &path) { ShowFileProperties(this, path); });
        connect(half, &HalfDocument::begun, m_area->panels, &HelpPanels::clear);
    }
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
}

void FormORCSCO::bindPanels()
{
    const auto bind = [this](const char *name, void (Bookmarks::*operation)()) {
        commands().bind(name, this, [this, operation] {
            if (const HalfView *half = m_area->focusedHalf())
                (half->document().bookmarks().*operation)();
        });
    };
    bind("menuPopupBookmark", &Bookmarks::InsertBookmark);
    bind("menuPopupRemoveBookmark", &Bookmarks::RemoveBookmark);
    bind("menuPopupRemoveAllBookmarks", &Bookmarks::RemoveAllBookmarks);

    const auto toggle = [this](const char *name, bool (ProjectArea::*panel)()) {
        QAction *const entry = commands().action(name);
        commands().bind(name, m_area,
                        [this, entry, panel] { entry->setChecked((m_area->*panel)()); });
    };
    toggle("menuWindowBarraBook", &ProjectArea::toggleBookmarksPanel);
    toggle("menuWindowInstrument", &ProjectArea::toggleInstrumentPanel);
}

void FormORCSCO::bindArrangements()
{
    auto *oneOfFour = new QActionGroup(this);
    for (const auto &[arrangement, command] : arrangementCommands) {
        oneOfFour->addAction(commands().action(command));
        commands().bind(command, m_area, [this, chosen = arrangement] { m_area->arrange(chosen); });
    }
    commands().bind("menuVisualizzaReset", m_area, [this] { m_area->arrange(); });
    connect(m_area, &ProjectArea::arranged, this, &FormORCSCO::checkArrangement);
}

void FormORCSCO::checkArrangement(Arrangement chosen)
{
    for (const auto &[arrangement, command] : arrangementCommands)
        commands().action(command)->setChecked(arrangement == chosen);
}

// What the window does itself. -------------------------------------------------------------------

const Document *FormORCSCO::document(DocumentRole role) const
{
    for (const HalfDocument *half : {m_orchestra, m_score})
        if (half->document().role() == role)
            return &half->document();
    return nullptr;
}

void FormORCSCO::openDroppedFile(const QString &path) { m_project->OpenDroppedFile(path); }

/// The steps after the questions are done after Cancel too; only the window stays open.
void FormORCSCO::closeEvent(QCloseEvent *event)
{
    bool saved = false;
    const bool leaves = m_project->mayLeave(saved);
    if (saved)
        m_tools->save();
    endClosing(*event, leaves);
}

} // namespace ardiphon
