#include "documents/CsdWindowLayout.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int ToolbarHeight = 430;
constexpr int PanelLeft = 30;
constexpr int PanelWidth = 2150;
constexpr int LabelIndent = 30;
constexpr int LabelHeight = 240;
constexpr int LineWidth = 15; // of the line between the views: one pixel

/// The height that the help panels and the toolbar take above the text.
int topBand(const CsdWindowState &state)
{
    if (state.OnLineHelpVisible)
        return state.ToolbarVisible ? 1150 : 720;
    return state.ToolbarVisible ? ToolbarHeight : 0;
}

QRect rect(int left, int top, int width, int height)
{
    return {left, top, std::max(width, 0), std::max(height, 0)};
}

void placeTopBand(CsdWindowLayout &layout, const CsdWindowState &state)
{
    const int top = state.ToolbarVisible ? 440 : 0;
    layout.Toolbar1 = rect(0, 0, state.innerWidth, ToolbarHeight);
    layout.TextOpcode = rect(50, top, state.innerWidth - 100, 340);
    layout.TextParametri = rect(50, top + 300, state.innerWidth - 100, 340);
}

/// The text area: one view, or two of half its height, each beside its gutter.
void placeViews(CsdWindowLayout &layout, const CsdWindowState &state, const QRect &area)
{
    const int left = area.left() + (state.LineNumbersVisible ? state.gutterWidth : 0);
    const int width = state.innerWidth - left - 50;
    const int height = state.split ? area.height() / 2 : area.height();
    layout.LEDIT1 = rect(left, area.top(), width, height);
    layout.LEDIT2 = rect(left, area.top() + height, width, height);
    layout.PicNumeri = rect(area.left(), area.top(), state.gutterWidth, height);
    layout.PicNumeri2 = rect(area.left(), area.top() + height, state.gutterWidth, height);
    layout.splitLine = rect(area.left(), layout.LEDIT2.y() - LineWidth,
                            state.innerWidth - area.left() - 50, LineWidth);
}

QRect labelAbove(const QRect &list, int distance)
{
    return rect(list.left() + LabelIndent, list.top() - distance, PanelWidth - LabelIndent,
                LabelHeight);
}

/// The three lists under one another beside the text, each below its label, and the instrument
/// search at the bottom of the window.
void placeSidePanel(CsdWindowLayout &layout, const CsdWindowState &state, const QRect &area)
{
    const int available = std::max(area.height() - 1100, 0);
    const auto list = [&](int top, double share, int less) {
        return rect(PanelLeft, top, PanelWidth, int(share * available) - less);
    };
    layout.Tree = list(area.top() + 260, 0.35, 260);
    layout.Tree2 = list(layout.Tree.y() + layout.Tree.height() + 300, 0.35, 300);
    layout.List1 = list(layout.Tree2.y() + layout.Tree2.height() + 300, 0.28, 300);
    layout.LabelBookmarks = labelAbove(layout.Tree, 250);
    layout.LabelOwnBook = labelAbove(layout.Tree2, 250);
    layout.LabelTags = labelAbove(layout.List1, 255);
    layout.Frame1 = rect(PanelLeft, state.innerHeight - 1210, PanelWidth, 1200);
}

} // namespace

CsdWindowLayout ArrangeWindow(const CsdWindowState &state)
{
    const int top = topBand(state);
    const QRect area = rect(state.BookBarVisible ? 2200 : 30, top, 0, state.innerHeight - top - 10);

    CsdWindowLayout layout;
    placeTopBand(layout, state);
    placeViews(layout, state, area);
    placeSidePanel(layout, state, area);
    return layout;
}

} // namespace ardiphon
