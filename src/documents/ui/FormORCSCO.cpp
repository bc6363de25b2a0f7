#include "documents/ui/FormORCSCO.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/ui/FormNew.h"
#include "documents/DocumentRules.h"
#include "documents/ui/BookmarksPanel.h"
#include "documents/ui/FloatingPanel.h"
#include "documents/ui/HalfDocument.h"
#include "documents/ui/HalfView.h"
#include "documents/ui/ProjectDocument.h"
#include "documents/ui/SplitLine.h"
#include "documents/ui/SplitterGrip.h"
#include "documents/ui/ToolToggles.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/Gutter.h"
#include "language/ui/HelpPanels.h"
#include "navigation/ui/Bookmarks.h"
#include "navigation/ui/InstrumentPanel.h"
#include "navigation/ui/Instruments.h"
#include "platform/Twips.h"
#include "preferences/SettingsValues.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QTreeWidget>

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int RefreshInterval = 100; // milliseconds
constexpr int ToolIconSize = 18;
constexpr int HalfToolIconSize = 16;
constexpr QSize InstrumentPanelSize(150, 90);
constexpr int LabelFontSize = 11; // pixels: the labels' row is 14 high

/// A toolbar as small as its buttons, on a ground of its own: the halves' toolbars may overlap.
void makeCompact(QToolBar &toolbar)
{
    toolbar.setAutoFillBackground(true);
    toolbar.setStyleSheet(QStringLiteral("QToolBar { border: 0; padding: 0; margin: 0; spacing: 0 }"
                                         "QToolButton { padding: 2px; margin: 0 }"));
}

} // namespace

FormORCSCO::FormORCSCO(ProgramContext &program) : EditorWindow(program)
{
    setObjectName(QStringLiteral("FormORCSCO"));
    setWindowTitle(WindowTitle);
    config().Arrangement = arrangementName(Arrangement::Horizontal);
    buildControls();
    buildHalves();
    buildMenus();
    bindCommon();
    bindProject();
    bindPrinting();
    bindEditing();
    bindNavigation();
    bindPreferences(ProjectSettings, {*LEDIT1, *LEDIT2});
    bindPanels();
    bindCompilers();
    bindArrangements();
    groupTools();
    m_tools->load();
    takePlacement();
    m_project->OpenNamedOnLoad();

    Timer1.setObjectName(QStringLiteral("Timer1"));
    connect(&Timer1, &QTimer::timeout, m_orchestra, &HalfView::refresh);
    connect(&Timer1, &QTimer::timeout, m_score, &HalfView::refresh);
    Timer1.start(RefreshInterval);
}

// Building. --------------------------------------------------------------------------------------

void FormORCSCO::buildControls()
{
    m_panels = new HelpPanels(config().Words, centralWidget());
    Toolbar1 = newToolbar(QStringLiteral("Toolbar1"), ToolIconSize);
    makeCompact(*Toolbar1);
    LEDIT1 = newEditor(QStringLiteral("LEDIT1"), ViewLanguage::Orchestra);
    LEDIT2 = newEditor(QStringLiteral("LEDIT2"), ViewLanguage::Score);
    m_panels->follow(LEDIT1);

    PictureBookmarks = new BookmarksPanel(centralWidget());
    PictureBookmarks->setObjectName(QStringLiteral("PictureBookmarks"));
    m_bookmarksPanel = new FloatingPanel(*PictureBookmarks, *PictureBookmarks->grip());
    auto *instruments = new Instruments(*LEDIT1);
    PictureInstrument =
        new InstrumentPanel(*instruments, QStringLiteral("Toolbar_INSTR_2"), centralWidget());
    PictureInstrument->setObjectName(QStringLiteral("PictureInstrument"));
    PictureInstrument->setAutoFillBackground(true);
    PictureInstrument->resize(InstrumentPanelSize);
    m_instrumentPanel = new FloatingPanel(*PictureInstrument, *PictureInstrument->grip());
}

void FormORCSCO::buildGrips()
{
    m_splitLine = new SplitLine(config(), centralWidget());
    m_splitLine->setObjectName(QStringLiteral("splitLine"));
    m_splitLine->stackUnder(PictureBookmarks);
    SplitterH = new SplitterGrip(Qt::Vertical, centralWidget());
    SplitterH->setObjectName(QStringLiteral("SplitterH"));
    SplitterH->setToolTip(tr("Splitter - [F9] Reset to Normal position"));
    SplitterV = new SplitterGrip(Qt::Horizontal, centralWidget());
    SplitterV->setObjectName(QStringLiteral("SplitterV"));
    SplitterV->setToolTip(tr("Splitter - [F9] Reset to normal position"));
}

void FormORCSCO::buildHalves()
{
    auto *Tree1 = newTree(QStringLiteral("Tree1"));
    auto *Tree2 = newTree(QStringLiteral("Tree2"));
    PictureBookmarks->add(QStringLiteral("frameBookmarks1"), tr("Orchestra:"), Tree1);
    PictureBookmarks->add(QStringLiteral("frameBookmarks2"), tr("Score:"), Tree2);
    auto *orchestra = new Bookmarks(*LEDIT1, *Tree1, config().OrchestraModified,
                                    QStringLiteral("bko"), program().dialogs);
    auto *score = new Bookmarks(*LEDIT2, *Tree2, config().ScoreModified, QStringLiteral("bks"),
                                program().dialogs);
    m_orchestra = newHalf(OrchestraHalf, *LEDIT1, *orchestra, config().OrchestraFileName,
                          QStringLiteral("1"));
    m_score = newHalf(ScoreHalf, *LEDIT2, *score, config().ScoreFileName, QStringLiteral("2"));
    buildGrips();

    const auto chooseNew = [this] { FormNew::showModal(config(), this); };
    m_project = new ProjectDocument(m_orchestra->document(), m_score->document(), program(),
                                    files(), chooseNew, this);
    m_tools = new ToolToggles(program(), {&LineNumbersTool, &OnLineHelpTool, &ToolbarTool}, this);
}

HalfView *FormORCSCO::newHalf(const ProjectHalf &half, LEditOCX &editor, Bookmarks &bookmarks,
                              QString &fileName, const QString &number)
{
    auto *document =
        new HalfDocument(half, editor, bookmarks, fileName, *LEDIT1, program(), files(), this);
    auto *gutter = new Gutter(editor, config(), centralWidget());
    gutter->setObjectName(QStringLiteral("PicNumeri") + number);
    // Told while the view is drawn, which must not be moved then.
    connect(gutter, &Gutter::textWidthChanged, this, &FormORCSCO::arrangeWindow,
            Qt::QueuedConnection);
    auto *label = newLabel(QStringLiteral("Label") + half.name, half.label(Untitled));
    QFont small = label->font();
    small.setPixelSize(LabelFontSize);
    label->setFont(small);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setAutoFillBackground(true);
    label->lower(); // its row is shorter than the label: text and line numbers cover it
    auto *toolbar = newToolbar(half.extension == u"orc" ? QStringLiteral("Toolbar2")
                                                        : QStringLiteral("Toolbar3"),
                               HalfToolIconSize);
    makeCompact(*toolbar);
    return new HalfView(*document, *gutter, *label, *toolbar, this);
}

void FormORCSCO::buildMenus()
{
    CommandSet &set = commands();
    addCommands(projectCommands());
    set.fill(*menuBar(), projectMenus(), editorSubmenus());
    set.fill(*Toolbar1, projectToolbar());
    set.fill(m_orchestra->toolbar(), orchestraToolbar());
    set.fill(m_score->toolbar(), scoreToolbar());
    menuPopup = new QMenu(this);
    set.fill(*menuPopup, editorPopup());
}

void FormORCSCO::groupTools()
{
    for (HalfView *half : {m_orchestra, m_score})
        m_tools->add(LineNumbersTool, &half->gutter(), [half] { return half->isShown(); });
    m_tools->add(OnLineHelpTool, m_panels->TextOpcode);
    m_tools->add(OnLineHelpTool, m_panels->TextParametri);
    m_tools->add(ToolbarTool, Toolbar1);
    bindTools(*m_tools);
}

// Arrangements. ----------------------------------------------------------------------------------

Arrangement FormORCSCO::arrangement() const { return arrangementNamed(config().Arrangement); }

void FormORCSCO::arrangeWindow() { arrange(arrangement()); }

void FormORCSCO::arrange(Arrangement chosen)
{
    config().Arrangement = arrangementName(chosen);
    checkArrangement(chosen);
    m_orchestra->setShown(showsOrchestra(chosen), config().LineNumbersVisible);
    m_score->setShown(showsScore(chosen), config().LineNumbersVisible);
    SplitterH->setVisible(chosen == Arrangement::Horizontal);
    SplitterV->setVisible(chosen == Arrangement::Vertical);
    m_splitLine->setVisible(chosen == Arrangement::Vertical);
    for (HalfView *half : {m_orchestra, m_score}) {
        half->setColumn(chosen == Arrangement::Horizontal);
        half->setNarrowLabel(chosen == Arrangement::Vertical);
        half->gutter().takeFont();
    }
    place(arrangeProject(windowState()));
    if (chosen == Arrangement::Orchestra)
        LEDIT1->setFocus();
    else if (chosen == Arrangement::Score)
        LEDIT2->setFocus();
}

ProjectWindowState FormORCSCO::windowState() const
{
    const QSize toolbar = m_orchestra->toolbar().sizeHint();
    ProjectWindowState state;
    state.innerWidth = toTwips(centralWidget()->width());
    state.innerHeight = toTwips(centralWidget()->height());
    state.gutterWidth =
        toTwips(std::max(m_orchestra->gutter().textWidth(), m_score->gutter().textWidth()));
    state.toolbarHeight = state.columnHeight = toTwips(toolbar.height());
    state.grabWidth = toTwips(SplitterH->width());
    state.LineNumbersVisible = config().LineNumbersVisible;
    state.OnLineHelpVisible = config().OnLineHelpVisible;
    state.ToolbarVisible = config().ToolbarVisible;
    state.arrangement = arrangement();
    return state;
}

void FormORCSCO::place(const ProjectLayout &layout)
{
    m_layout = layout;
    Toolbar1->setGeometry(toPixels(layout.Toolbar1));
    m_panels->TextOpcode->setGeometry(toPixels(layout.TextOpcode));
    m_panels->TextParametri->setGeometry(toPixels(layout.TextParametri));
    if (m_orchestra->isShown())
        m_orchestra->place(layout.orchestra);
    if (m_score->isShown())
        m_score->place(layout.score);
    m_splitLine->setGeometry(toPixels(layout.splitLine));
    SplitterH->move(toPixels(layout.SplitterH));
    SplitterV->move(toPixels(layout.SplitterV));
}

/// A drag beyond the limits leaves everything as it is.
void FormORCSCO::dragged(const std::optional<ProjectLayout> &layout)
{
    if (layout)
        place(*layout);
}

// What the window does itself. -------------------------------------------------------------------

void FormORCSCO::toggle(FloatingPanel &panel, QPoint topLeft)
{
    if (panel.isShown())
        panel.hide();
    else
        panel.showAt(toPixels(topLeft));
}

void FormORCSCO::toggleBookmarksPanel()
{
    const int left = toTwips(frameGeometry().width() - PictureBookmarks->width()) - 400;
    toggle(*m_bookmarksPanel, {left, toTwips(LEDIT1->y()) + 33});
    commands().action("menuWindowBarraBook")->setChecked(m_bookmarksPanel->isShown());
}

void FormORCSCO::toggleInstrumentPanel()
{
    const int left = toTwips(centralWidget()->width() - PictureInstrument->width()) - 150;
    toggle(*m_instrumentPanel, {left, 50});
    commands().action("menuWindowInstrument")->setChecked(m_instrumentPanel->isShown());
}

HalfView *FormORCSCO::focusedHalf() const
{
    const LEditOCX *editor = focusedEditor();
    if (!editor)
        return nullptr;
    return editor == LEDIT1 ? m_orchestra : m_score;
}

LEditOCX *FormORCSCO::focusedEditor() const
{
    for (LEditOCX *editor : {LEDIT1, LEDIT2})
        if (editor->hasFocus() && !editor->isHidden())
            return editor;
    return nullptr;
}

void FormORCSCO::insertText(const QString &text) { insertInto(*LEDIT1, text); }

void FormORCSCO::applyFontSize()
{
    LEDIT1->SetFontSize(config().FontSize);
    LEDIT2->SetFontSize(config().FontSize);
    arrangeWindow();
}

void FormORCSCO::openDroppedFile(const QString &path) { m_project->OpenDroppedFile(path); }

/// The steps behind the questions run after a Cancel too; only the window stays.
void FormORCSCO::closeEvent(QCloseEvent *event)
{
    bool saved = false;
    const bool leaves = m_project->mayLeave(saved);
    if (saved)
        m_tools->save();
    endClosing(*event, leaves);
}

} // namespace ardiphon
