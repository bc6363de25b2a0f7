#include "documents/ui/FormCSD.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "documents/Commands.h"
#include "documents/DocumentRules.h"
#include "documents/ui/CsdArea.h"
#include "documents/ui/CsdDocument.h"
#include "documents/ui/RecentMenu.h"
#include "documents/ui/SplitMirror.h"
#include "documents/ui/TagPanel.h"
#include "documents/ui/ToolToggles.h"
#include "documents/ui/WindowPlacement.h"
#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/HelpPanels.h"
#include "navigation/ui/Bookmarks.h"
#include "navigation/ui/EditorSearch.h"
#include "navigation/ui/Instruments.h"
#include "navigation/ui/SearchWindows.h"
#include "platform/ui/FileProperties.h"
#include "platform/ui/TitleText.h"
#include "start/ui/FormNew.h"

#include <QCloseEvent>

#include <functional>

namespace ardiphon {

namespace {

constexpr int RefreshInterval = 100; // milliseconds

} // namespace

FormCSD::FormCSD(ProgramContext &program)
    : EditorWindow(program, csdCommands(), csdShortcuts(), csdViewKey),
      m_area(new CsdArea(program.config))
{
    setObjectName(QStringLiteral("FormCSD"));
    setArea(m_area);
    buildDocument();
    bindDocument();
    followDocument();
    bindEditing();
    bindNavigation();
    fillMenus(csdMenus());
    commands().fill(*m_area->Toolbar1, csdToolbar());
    buildTools();
    takePlacement(*this, config());
    openNamedDocument();

    Timer1.setObjectName(QStringLiteral("Timer1"));
    connect(m_tags, &TagPanel::refreshRequested, &Timer1, &RefreshTimer::wake);
    connect(m_area->LEDIT1, &LEditOCX::modifiedChanged, &Timer1, &RefreshTimer::wake);
    connect(this, &QWidget::windowTitleChanged, &Timer1, &RefreshTimer::wake);
    Timer1.start(RefreshInterval);
    m_area->LEDIT1->setFocus();
}

// Building. --------------------------------------------------------------------------------------

void FormCSD::buildDocument()
{
    LEditOCX &first = *m_area->LEDIT1;
    m_bookmarks = new Bookmarks(first, *m_area->Tree2, QStringLiteral("bkm"), dialogs());
    const auto chooseNew = [this] { return FormNew::choose(config(), this); };
    m_document = new CsdDocument(first, *m_bookmarks, program(), files(), chooseNew, this);
    m_tags = new TagPanel(first, *m_area->Tree, *m_area->List1, config().Words->CsdWords);
    m_mirror = new SplitMirror(first, *m_area->LEDIT2, this);
}

void FormCSD::buildTools()
{
    m_tools = new ToolToggles(
        program(), {&LineNumbersTool, &BookBarTool, &OnLineHelpTool, &ToolbarTool}, this);
    bindTools(*m_tools);
    m_area->groupTools(*m_tools);
    m_tools->load();
}

void FormCSD::openNamedDocument()
{
    if (config().CSDFileName.isEmpty())
        m_document->rename(Untitled);
    else
        m_document->OpenNamedOnLoad(config().CSDFileName);
    writeTitle();
}

// Binding. ---------------------------------------------------------------------------------------

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
}

void FormCSD::followDocument()
{
    connect(m_document, &CsdDocument::propertiesRequested, this,
            [this](const QString &path) { ShowFileProperties(this, path); });
    connect(m_document, &CsdDocument::titleChanged, this, &FormCSD::writeTitle);
    connect(m_document, &CsdDocument::programFirstTitleRequested, this,
            [this] { setWindowTitle(titleText(programFirstTitle(config().CSDFileName))); });
    connect(m_document, &CsdDocument::projectWindowRequested, this,
            [this] { handOver(program().windows.showFormORCSCO); });
    connect(m_document, &CsdDocument::begun, this, [this] { setSplit(false); });
    connect(m_document, &CsdDocument::begun, m_tags, &TagPanel::clear);
    connect(m_document, &CsdDocument::begun, m_area->panels, &HelpPanels::clear);
    connect(m_document, &CsdDocument::loaded, this, &FormCSD::textReplaced);
    connect(m_document, &CsdDocument::opened, &recent(), &RecentMenu::refresh);
    connect(&recent(), &RecentMenu::chosen, m_document, &CsdDocument::OpenRecent);
}

/// The entries of the menu act on the first view, whichever has the focus. Which view each of them
/// marks as changed is deliberate: Copy marks the second.
void FormCSD::bindEditing()
{
    CommandSet &set = commands();
    LEditOCX *const first = m_area->LEDIT1;
    const auto edit = [this, &set, first](const char *name, auto operation) {
        set.bind(name, this, [this, first, operation] {
            std::invoke(operation, first);
            m_mirror->setView1Changed();
        });
    };
    edit("menuModificaUndo", &LEditOCX::Undo);
    edit("menuModificaRedo", &LEditOCX::Redo);
    edit("menuModificaTaglia", &LEditOCX::Cut);
    edit("menuModificaIncolla", &LEditOCX::Paste);
    set.bind("menuModificaCopia", this, [this, first] {
        first->Copy();
        m_mirror->setView2Changed();
    });
    set.bind("menuModificaSelezionaTutto", first, &LEditOCX::SelectAll);
    set.bind("buttonSplit", this, &FormCSD::setSplit);
    connect(&search(), &SearchWindows::replaced, m_mirror, &SplitMirror::copyFirstToSecond);
    connect(m_tags, &TagPanel::inserted, m_mirror, &SplitMirror::copyFirstToSecond);
}

void FormCSD::bindNavigation()
{
    const auto bindKey = [this](ViewKey key, void (Instruments::*go)()) {
        keys().bind(key, [this, go](const EditorView &) { (m_area->instruments->*go)(); });
    };
    bindKey(ViewKey::FirstInstrument, &Instruments::GoToFirstInstrument);
    bindKey(ViewKey::PreviousInstrument, &Instruments::GoToPreviousInstrument);
    bindKey(ViewKey::NextInstrument, &Instruments::GoToNextInstrument);
    bindKey(ViewKey::LastInstrument, &Instruments::GoToLastInstrument);

    CommandSet &set = commands();
    set.bind("menuPopupBookmark", m_bookmarks, &Bookmarks::InsertBookmark);
    set.bind("menuPopupRemoveBookmark", m_bookmarks, &Bookmarks::RemoveBookmark);
    set.bind("menuPopupRemoveAllBookmarks", m_bookmarks, &Bookmarks::RemoveAllBookmarks);
    connect(m_bookmarks, &Bookmarks::visited, m_area->LEDIT1, qOverload<>(&QWidget::setFocus));
}

// What the window does itself. -------------------------------------------------------------------

void FormCSD::insertText(const QString &text)
{
    EditorWindow::insertText(text);
    m_mirror->copyFirstToSecond();
}

const Document *FormCSD::document(DocumentRole role) const
{
    return role == DocumentRole::Csd ? &m_document->document() : nullptr;
}

void FormCSD::setSplit(bool on)
{
    commands().action("buttonSplit")->setChecked(on);
    LEditOCX &second = *m_area->LEDIT2;
    if (on) {
        second.SetTextOf(*m_area->LEDIT1);
    } else {
        second.ClearDocument();
        second.ClearState(TextState);
    }
    second.ResetUndo();
    m_area->setSplit(on);
    m_mirror->setSplit(on);
    m_area->arrange();
}

/// One step of the tools that follow the text, ten times a second. False when no further step is
/// needed.
bool FormCSD::refresh()
{
    const bool modified = m_area->LEDIT1->GetState(TextState);
    if (!modified && isEmptyText(*m_area->LEDIT1))
        return false;
    const bool more = m_tags->refreshNext();
    if (modified)
        setWindowTitle(markedModified(windowTitle()));
    return more;
}

void FormCSD::writeTitle() { setWindowTitle(titleText(csdTitle(config().CSDFileName))); }

void FormCSD::textReplaced()
{
    m_tags->clear();
    m_mirror->copyFirstToSecond();
    if (m_area->isSplit())
        m_area->LEDIT2->ResetUndo();
}

void FormCSD::openDroppedFile(const QString &path) { m_document->OpenByName(path); }

/// The steps after the question are done after Cancel too; only the window stays open.
void FormCSD::closeEvent(QCloseEvent *event)
{
    bool saved = false;
    const bool leaves = m_document->mayLeave(saved);
    if (saved) {
        m_bookmarks->saveIfChanged(config().CSDFileName);
        m_tools->save();
    }
    endClosing(*event, leaves);
}

} // namespace ardiphon
