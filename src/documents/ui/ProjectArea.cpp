#include "documents/ui/ProjectArea.h"

#include "app/ConfigurationBlock.h"
#include "app/WindowMirror.h"
#include "documents/DocumentRules.h"
#include "documents/ui/BookmarksPanel.h"
#include "documents/ui/EditorControls.h"
#include "documents/ui/FloatingPanel.h"
#include "documents/ui/HalfDocument.h"
#include "documents/ui/HalfView.h"
#include "documents/ui/SplitLine.h"
#include "documents/ui/SplitterGrip.h"
#include "documents/ui/ToolToggles.h"
#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/Gutter.h"
#include "language/ui/HelpPanels.h"
#include "navigation/ui/InstrumentPanel.h"
#include "navigation/ui/Instruments.h"
#include "platform/Twips.h"

#include <QLabel>
#include <QLineEdit>
#include <QToolBar>
#include <QTreeWidget>

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int ToolIconSize = 18;
constexpr int HalfToolIconSize = 16;
constexpr QSize InstrumentPanelSize(150, 90);
constexpr int LabelFontSize = 11; // pixels: the labels' row is 14 high

/// A toolbar as small as its buttons, with a background of its own: the halves' toolbars may
/// overlap.
void makeCompact(QToolBar &toolbar)
{
    toolbar.setAutoFillBackground(true);
    toolbar.setStyleSheet(QStringLiteral("QToolBar { border: 0; padding: 0; margin: 0; spacing: 0 }"
                                         "QToolButton { padding: 2px; margin: 0 }"));
}

} // namespace

ProjectArea::ProjectArea(ConfigurationBlock &config) : EditorArea(config)
{
    mirrorArrangement(config, arrangementName(m_arrangement));
    panels = new HelpPanels(*config.Words, this);
    Toolbar1 = newToolbar(QStringLiteral("Toolbar1"), ToolIconSize, this);
    makeCompact(*Toolbar1);
    LEDIT1 = newEditor(QStringLiteral("LEDIT1"), DocumentRole::Orchestra, config, this);
    LEDIT2 = newEditor(QStringLiteral("LEDIT2"), DocumentRole::Score, config, this);
    panels->follow(LEDIT1);
    buildPanels();
    PicNumeri1 = newGutter(QStringLiteral("PicNumeri1"), *LEDIT1);
    PicNumeri2 = newGutter(QStringLiteral("PicNumeri2"), *LEDIT2);
}

// Building. --------------------------------------------------------------------------------------

void ProjectArea::buildPanels()
{
    PictureBookmarks = new BookmarksPanel(this);
    PictureBookmarks->setObjectName(QStringLiteral("PictureBookmarks"));
    m_bookmarksPanel = new FloatingPanel(*PictureBookmarks, *PictureBookmarks->grip());
    auto *instruments = new Instruments(*LEDIT1);
    PictureInstrument = new InstrumentPanel(*instruments, QStringLiteral("Toolbar_INSTR_2"), this);
    PictureInstrument->setObjectName(QStringLiteral("PictureInstrument"));
    PictureInstrument->setAutoFillBackground(true);
    PictureInstrument->resize(InstrumentPanelSize);
    m_instrumentPanel = new FloatingPanel(*PictureInstrument, *PictureInstrument->grip());

    Tree1 = newTree(QStringLiteral("Tree1"), this);
    Tree2 = newTree(QStringLiteral("Tree2"), this);
    PictureBookmarks->add(QStringLiteral("frameBookmarks1"), tr("Orchestra:"), Tree1);
    PictureBookmarks->add(QStringLiteral("frameBookmarks2"), tr("Score:"), Tree2);
}

void ProjectArea::setDocuments(HalfDocument &orchestraDocument, HalfDocument &scoreDocument)
{
    orchestra = newHalf(orchestraDocument, *PicNumeri1, QStringLiteral("Toolbar2"));
    score = newHalf(scoreDocument, *PicNumeri2, QStringLiteral("Toolbar3"));
    buildGrips();
}

HalfView *ProjectArea::newHalf(HalfDocument &document, Gutter &gutter, const QString &toolbarName)
{
    const ProjectHalf &half = document.half();
    auto *label = newLabel(QStringLiteral("Label") + half.name, half.label(Untitled), this);
    QFont small = label->font();
    small.setPixelSize(LabelFontSize);
    label->setFont(small);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setAutoFillBackground(true);
    label->lower(); // its row is shorter than the label: text and line numbers cover it
    auto *toolbar = newToolbar(toolbarName, HalfToolIconSize, this);
    makeCompact(*toolbar);
    return new HalfView(document, gutter, *label, *toolbar, this);
}

void ProjectArea::buildGrips()
{
    m_splitLine = new SplitLine(config(), this);
    m_splitLine->setObjectName(QStringLiteral("splitLine"));
    m_splitLine->stackUnder(PictureBookmarks);
    SplitterH = new SplitterGrip(Qt::Vertical, this);
    SplitterH->setObjectName(QStringLiteral("SplitterH"));
    SplitterH->setToolTip(tr("Splitter - [F9] Reset to Normal position"));
    SplitterV = new SplitterGrip(Qt::Horizontal, this);
    SplitterV->setObjectName(QStringLiteral("SplitterV"));
    SplitterV->setToolTip(tr("Splitter - [F9] Reset to normal position"));
    connect(SplitterH, &SplitterGrip::dragged, this,
            [this](int top) { dragged(dragSplitterH(windowState(), m_layout, top)); });
    connect(SplitterV, &SplitterGrip::dragged, this,
            [this](int left) { dragged(dragSplitterV(windowState(), m_layout, left)); });
}

void ProjectArea::groupTools(ToolToggles &tools)
{
    for (HalfView *half : {orchestra, score})
        tools.add(LineNumbersTool, &half->gutter(), [half] { return half->isShown(); });
    tools.add(OnLineHelpTool, panels->TextOpcode);
    tools.add(OnLineHelpTool, panels->TextParametri);
    tools.add(ToolbarTool, Toolbar1);
}

// Views. -----------------------------------------------------------------------------------------

QList<EditorView> ProjectArea::views() const
{
    return {{LEDIT1, DocumentRole::Orchestra, ViewPosition::First, PicNumeri1},
            {LEDIT2, DocumentRole::Score, ViewPosition::Second, PicNumeri2}};
}

HalfView *ProjectArea::focusedHalf() const
{
    for (HalfView *half : {orchestra, score})
        if (half->isShown() && half->editor().hasFocus())
            return half;
    return nullptr;
}

bool ProjectArea::toggle(FloatingPanel &panel, QPoint topLeft)
{
    if (panel.isShown())
        panel.hide();
    else
        panel.showAt(toPixels(topLeft));
    return panel.isShown();
}

bool ProjectArea::toggleBookmarksPanel()
{
    const int left = toTwips(window()->frameGeometry().width() - PictureBookmarks->width()) - 400;
    return toggle(*m_bookmarksPanel, {left, toTwips(LEDIT1->y()) + 33});
}

bool ProjectArea::toggleInstrumentPanel()
{
    const int left = toTwips(width() - PictureInstrument->width()) - 150;
    return toggle(*m_instrumentPanel, {left, 50});
}

// Arrangements. ----------------------------------------------------------------------------------

void ProjectArea::arrange() { arrange(m_arrangement); }

void ProjectArea::arrange(Arrangement chosen)
{
    m_arrangement = chosen;
    mirrorArrangement(config(), arrangementName(chosen));
    emit arranged(chosen);
    orchestra->setShown(showsOrchestra(chosen), config().LineNumbersVisible);
    score->setShown(showsScore(chosen), config().LineNumbersVisible);
    SplitterH->setVisible(chosen == Arrangement::Horizontal);
    SplitterV->setVisible(chosen == Arrangement::Vertical);
    m_splitLine->setVisible(chosen == Arrangement::Vertical);
    for (HalfView *half : {orchestra, score}) {
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

ProjectWindowState ProjectArea::windowState() const
{
    const QSize toolbar = orchestra->toolbar().sizeHint();
    ProjectWindowState state;
    state.innerWidth = toTwips(width());
    state.innerHeight = toTwips(height());
    state.gutterWidth =
        toTwips(std::max(orchestra->gutter().textWidth(), score->gutter().textWidth()));
    state.toolbarHeight = state.columnHeight = toTwips(toolbar.height());
    state.grabWidth = toTwips(SplitterH->width());
    state.LineNumbersVisible = config().LineNumbersVisible;
    state.OnLineHelpVisible = config().OnLineHelpVisible;
    state.ToolbarVisible = config().ToolbarVisible;
    state.arrangement = m_arrangement;
    return state;
}

void ProjectArea::place(const ProjectLayout &layout)
{
    m_layout = layout;
    Toolbar1->setGeometry(toPixels(layout.Toolbar1));
    panels->TextOpcode->setGeometry(toPixels(layout.TextOpcode));
    panels->TextParametri->setGeometry(toPixels(layout.TextParametri));
    if (orchestra->isShown())
        orchestra->place(layout.orchestra);
    if (score->isShown())
        score->place(layout.score);
    m_splitLine->setGeometry(toPixels(layout.splitLine));
    SplitterH->move(toPixels(layout.SplitterH));
    SplitterV->move(toPixels(layout.SplitterV));
}

/// A drag beyond the limits changes nothing.
void ProjectArea::dragged(const std::optional<ProjectLayout> &layout)
{
    if (layout)
        place(*layout);
}

} // namespace ardiphon
