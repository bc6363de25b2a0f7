#include "documents/ui/CsdArea.h"

#include "app/ConfigurationBlock.h"
#include "documents/CsdWindowLayout.h"
#include "documents/ui/EditorControls.h"
#include "documents/ui/SplitLine.h"
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
#include <QListWidget>
#include <QToolBar>
#include <QTreeWidget>

namespace ardiphon {

namespace {

constexpr int ToolIconSize = 20;

} // namespace

CsdArea::CsdArea(ConfigurationBlock &config) : EditorArea(config)
{
    buildViews();
    buildSidePanel();
    panels = new HelpPanels(*config.Words, this);
    panels->follow(LEDIT1);
    panels->follow(LEDIT2);
    Toolbar1 = newToolbar(QStringLiteral("Toolbar1"), ToolIconSize, this);
    instruments = new Instruments(*LEDIT1);
    Frame1 = new InstrumentPanel(*instruments, QStringLiteral("Toolbar2"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
}

// Building. --------------------------------------------------------------------------------------

void CsdArea::buildViews()
{
    LEDIT1 = newEditor(QStringLiteral("LEDIT1"), DocumentRole::Csd, config(), this);
    LEDIT2 = newEditor(QStringLiteral("LEDIT2"), DocumentRole::Csd, config(), this);
    LEDIT2->hide();
    PicNumeri = newGutter(QStringLiteral("PicNumeri"), *LEDIT1);
    PicNumeri2 = newGutter(QStringLiteral("PicNumeri2"), *LEDIT2);
    m_splitLine = new SplitLine(config(), this);
    m_splitLine->setObjectName(QStringLiteral("splitLine"));
    m_splitLine->hide();
}

void CsdArea::buildSidePanel()
{
    LabelBookmarks = newLabel(QStringLiteral("LabelBookmarks"), tr("Tags in this file"), this);
    Tree = newTree(QStringLiteral("Tree"), this);
    LabelOwnBook = newLabel(QStringLiteral("LabelOwnBook"), tr("Bookmarks"), this);
    Tree2 = newTree(QStringLiteral("Tree2"), this);
    LabelTags = newLabel(QStringLiteral("LabelTags"), tr("Insert a tag"), this);
    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setTextElideMode(Qt::ElideMiddle);
    List1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void CsdArea::groupTools(ToolToggles &tools)
{
    tools.add(LineNumbersTool, PicNumeri);
    tools.add(LineNumbersTool, PicNumeri2, [this] { return isSplit(); });
    for (QWidget *control : std::initializer_list<QWidget *>{Tree, Tree2, List1, LabelTags,
                                                             LabelBookmarks, LabelOwnBook, Frame1})
        tools.add(BookBarTool, control);
    tools.add(OnLineHelpTool, panels->TextOpcode);
    tools.add(OnLineHelpTool, panels->TextParametri);
    tools.add(ToolbarTool, Toolbar1);
}

// Views. -----------------------------------------------------------------------------------------

QList<EditorView> CsdArea::views() const
{
    return {{LEDIT1, DocumentRole::Csd, ViewPosition::First, PicNumeri},
            {LEDIT2, DocumentRole::Csd, ViewPosition::Second, PicNumeri2}};
}

bool CsdArea::isSplit() const { return !LEDIT2->isHidden(); }

void CsdArea::setSplit(bool on)
{
    const bool lowerHasFocus = LEDIT2->isAncestorOf(window()->focusWidget());
    LEDIT2->setVisible(on);
    if (!on && lowerHasFocus)
        LEDIT1->setFocus();
    PicNumeri2->setVisible(on && config().LineNumbersVisible);
    m_splitLine->setVisible(on);
}

// Places. ----------------------------------------------------------------------------------------

CsdWindowState CsdArea::windowState() const
{
    CsdWindowState state;
    state.innerWidth = toTwips(width());
    state.innerHeight = toTwips(height());
    state.gutterWidth = toTwips(PicNumeri->textWidth());
    state.LineNumbersVisible = config().LineNumbersVisible;
    state.BookBarVisible = config().BookBarVisible;
    state.OnLineHelpVisible = config().OnLineHelpVisible;
    state.ToolbarVisible = config().ToolbarVisible;
    state.split = isSplit();
    return state;
}

void CsdArea::arrange()
{
    PicNumeri->takeFont();
    if (isSplit()) {
        LEDIT2->SetFontName(LEDIT1->FontName());
        LEDIT2->SetFontSize(LEDIT1->FontSize());
        PicNumeri2->takeFont();
    }
    const CsdWindowLayout at = ArrangeWindow(windowState());
    const std::pair<QWidget *, QRect> places[] = {
        {Toolbar1, at.Toolbar1},
        {LEDIT1, at.LEDIT1},
        {panels->TextOpcode, at.TextOpcode},
        {panels->TextParametri, at.TextParametri},
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

} // namespace ardiphon
