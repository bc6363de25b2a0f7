#include "documents/ui/FormCSD.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/ui/FormNew.h"
#include "documents/CsdWindowLayout.h"
#include "documents/DocumentRules.h"
#include "documents/ui/CsdDocument.h"
#include "documents/ui/SplitLine.h"
#include "documents/ui/SplitMirror.h"
#include "documents/ui/TagPanel.h"
#include "documents/ui/ToolToggles.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/Gutter.h"
#include "language/ui/HelpPanels.h"
#include "navigation/ui/Bookmarks.h"
#include "navigation/ui/EditorSearch.h"
#include "navigation/ui/InstrumentPanel.h"
#include "navigation/ui/Instruments.h"
#include "platform/Twips.h"
#include "platform/ui/TitleText.h"
#include "preferences/SettingsValues.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QTreeWidget>

namespace ardiphon {

namespace {

constexpr int RefreshInterval = 100; // milliseconds
constexpr int ToolIconSize = 20;

} // namespace

FormCSD::FormCSD(ProgramContext &program) : EditorWindow(program)
{
    setObjectName(QStringLiteral("FormCSD"));
    buildControls();
    buildFeatures();
    buildMenus();
    bindCommon();
    bindDocument();
    bindEditing();
    bindNavigation();
    bindPreferences(CsdSettings, {*LEDIT1, *LEDIT2});
    bindTools();
    groupTools();
    m_tools->load();
    takePlacement();
    openNamedDocument();

    Timer1.setObjectName(QStringLiteral("Timer1"));
    connect(&Timer1, &QTimer::timeout, this, &FormCSD::refresh);
    Timer1.start(RefreshInterval);
    LEDIT1->setFocus();
}

// Building. --------------------------------------------------------------------------------------

void FormCSD::buildControls()
{
    LEDIT1 = newEditor(QStringLiteral("LEDIT1"), ViewLanguage::Csd);
    LEDIT2 = newEditor(QStringLiteral("LEDIT2"), ViewLanguage::Csd);
    LEDIT2->hide();
    PicNumeri = new Gutter(*LEDIT1, config(), centralWidget());
    PicNumeri->setObjectName(QStringLiteral("PicNumeri"));
    PicNumeri2 = new Gutter(*LEDIT2, config(), centralWidget());
    PicNumeri2->setObjectName(QStringLiteral("PicNumeri2"));
    m_splitLine = new SplitLine(config(), centralWidget());
    m_splitLine->setObjectName(QStringLiteral("splitLine"));
    m_splitLine->hide();
    // Told while the view is drawn, which must not be moved then.
    connect(PicNumeri, &Gutter::textWidthChanged, this, &FormCSD::arrangeWindow,
            Qt::QueuedConnection);

    LabelBookmarks = newLabel(QStringLiteral("LabelBookmarks"), tr("Tags in this file"));
    Tree = newTree(QStringLiteral("Tree"));
    LabelOwnBook = newLabel(QStringLiteral("LabelOwnBook"), tr("Bookmarks"));
    Tree2 = newTree(QStringLiteral("Tree2"));
    LabelTags = newLabel(QStringLiteral("LabelTags"), tr("Insert a tag"));
    List1 = new QListWidget(centralWidget());
    List1->setObjectName(QStringLiteral("List1"));
    List1->setTextElideMode(Qt::ElideMiddle);
    List1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    m_panels = new HelpPanels(config().Words, centralWidget());
    m_panels->follow(LEDIT1);
    m_panels->follow(LEDIT2);
    Toolbar1 = newToolbar(QStringLiteral("Toolbar1"), ToolIconSize);
}

void FormCSD::buildFeatures()
{
    m_bookmarks = new Bookmarks(*LEDIT1, *Tree2, config().CSDModified, QStringLiteral("bkm"),
                                program().dialogs);
    const auto chooseNew = [this] { FormNew::showModal(config(), this); };
    m_document = new CsdDocument(*LEDIT1, *m_bookmarks, program(), files(), chooseNew, this);
    m_instruments = new Instruments(*LEDIT1);
    Frame1 = new InstrumentPanel(*m_instruments, QStringLiteral("Toolbar2"), centralWidget());
    Frame1->setObjectName(QStringLiteral("Frame1"));
    m_tags = new TagPanel(*LEDIT1, *Tree, *List1, config().Words.CsdWords);
    m_mirror = new SplitMirror(*LEDIT1, *LEDIT2, this);
    m_tools = new ToolToggles(
        program(), {&LineNumbersTool, &BookBarTool, &OnLineHelpTool, &ToolbarTool}, this);
}

void FormCSD::buildMenus()
{
    CommandSet &set = commands();
    addCommands(csdCommands());
    set.fill(*menuBar(), csdMenus(), editorSubmenus());
    set.fill(*Toolbar1, csdToolbar());
    menuPopup = new QMenu(this);
    set.fill(*menuPopup, editorPopup());
}

void FormCSD::groupTools()
{
    m_tools->add(LineNumbersTool, PicNumeri);
    m_tools->add(LineNumbersTool, PicNumeri2, [this] { return isSplit(); });
    for (QWidget *control : std::initializer_list<QWidget *>{Tree, Tree2, List1, LabelTags,
                                                             LabelBookmarks, LabelOwnBook, Frame1})
        m_tools->add(BookBarTool, control);
    m_tools->add(OnLineHelpTool, m_panels->TextOpcode);
    m_tools->add(OnLineHelpTool, m_panels->TextParametri);
    m_tools->add(ToolbarTool, Toolbar1);
}

void FormCSD::openNamedDocument()
{
    if (config().CSDFileName.isEmpty())
        config().CSDFileName = Untitled;
    else
        m_document->OpenNamedOnLoad(config().CSDFileName);
    writeTitle();
}

// What the window does itself. -------------------------------------------------------------------

void FormCSD::insertText(const QString &text)
{
    insertInto(*LEDIT1, text);
    m_mirror->copyFirstToSecond();
}

bool FormCSD::isSplit() const { return !LEDIT2->isHidden(); }

void FormCSD::setSplit(bool on)
{
    commands().action("buttonSplit")->setChecked(on);
    if (on) {
        LEDIT2->SetTextOf(*LEDIT1);
        LEDIT2->ResetUndo();
    } else {
        LEDIT2->ClearDocument();
        LEDIT2->ClearState(TextState);
        LEDIT2->ResetUndo();
    }
    const bool lowerHasFocus = LEDIT2->isAncestorOf(focusWidget());
    LEDIT2->setVisible(on);
    if (!on && lowerHasFocus)
        LEDIT1->setFocus();
    PicNumeri2->setVisible(on && config().LineNumbersVisible);
    m_splitLine->setVisible(on);
    m_mirror->setSplit(on);
    arrangeWindow();
}

void FormCSD::applyFontSize()
{
    LEDIT1->SetFontSize(config().FontSize);
    arrangeWindow();
}

void FormCSD::arrangeWindow()
{
    PicNumeri->takeFont();
    if (isSplit()) {
        LEDIT2->SetFontName(LEDIT1->FontName());
        LEDIT2->SetFontSize(LEDIT1->FontSize());
        PicNumeri2->takeFont();
    }
    CsdWindowState state;
    state.innerWidth = toTwips(centralWidget()->width());
    state.innerHeight = toTwips(centralWidget()->height());
    state.gutterWidth = toTwips(PicNumeri->textWidth());
    state.LineNumbersVisible = config().LineNumbersVisible;
    state.BookBarVisible = config().BookBarVisible;
    state.OnLineHelpVisible = config().OnLineHelpVisible;
    state.ToolbarVisible = config().ToolbarVisible;
    state.split = isSplit();
    const CsdWindowLayout at = ArrangeWindow(state);

    const std::pair<QWidget *, QRect> places[] = {
        {Toolbar1, at.Toolbar1},
        {LEDIT1, at.LEDIT1},
        {m_panels->TextOpcode, at.TextOpcode},
        {m_panels->TextParametri, at.TextParametri},
        {LEDIT2, at.LEDIT2},
        {PicNumeri, at.PicNumeri},
        {PicNumeri2, at.PicNumeri2},
        {m_splitLine, at.splitLine},
        {Tree, at.Tree},
        {Tree2, at.Tree2},
        {List1, at.List1},
        {LabelTags, at.LabelTags},
        {LabelBookmarks, at.LabelBookmarks},
        {LabelOwnBook, at.LabelOwnBook},
        {Frame1, at.Frame1},
    };
    for (const auto &[control, place] : places)
        control->setGeometry(toPixels(place));
}

/// Runs ten times a second; costs nothing while nothing changes.
void FormCSD::refresh()
{
    const bool modified = LEDIT1->GetState(TextState);
    if (!modified && isEmptyText(*LEDIT1))
        return;
    m_tags->refreshNext();
    if (modified)
        setWindowTitle(markedModified(windowTitle()));
}

void FormCSD::writeTitle() { setWindowTitle(titleText(csdTitle(config().CSDFileName))); }

void FormCSD::textReplaced()
{
    m_tags->clear();
    m_mirror->copyFirstToSecond();
    if (isSplit())
        LEDIT2->ResetUndo();
}

void FormCSD::openDroppedFile(const QString &path) { m_document->OpenByName(path); }

LEditOCX *FormCSD::focusedEditor() const
{
    if (LEDIT1->hasFocus())
        return LEDIT1;
    return isSplit() && LEDIT2->hasFocus() ? LEDIT2 : nullptr;
}

/// The steps behind the question run after a Cancel too; only the window stays.
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
