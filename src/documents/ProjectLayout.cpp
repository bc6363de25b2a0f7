#include "documents/ProjectLayout.h"

#include <algorithm>
#include <array>

namespace ardiphon {

namespace {

constexpr std::array<const char *, 4> names = {"orizzontale", "verticale", "orchestra", "score"};

constexpr int ToolbarHeight = 400;
constexpr int ColumnWidth = 360; // of the halves' toolbars in the horizontal arrangement
constexpr int LeastColumnHeight = 1000;
constexpr int LabelHeight = 300;
constexpr int RowsAboveEditor = 450; // a label and a toolbar, below placeTopBand()
constexpr int LineWidth = 15;        // of the line between the halves: one pixel
constexpr int GripIndent = 250;      // how far the vertical grip is left of the boundary

QRect rect(int left, int top, int width, int height)
{
    return {left, top, std::max(width, 0), std::max(height, 0)};
}

int endOf(const QRect &place) { return place.x() + place.width(); }

int gutterWidth(const ProjectWindowState &state)
{
    return state.LineNumbersVisible ? state.gutterWidth : 0;
}

/// The common start of every arrangement: the toolbar and the help panels. Returns the top of the
/// room below them.
int placeTopBand(ProjectLayout &layout, const ProjectWindowState &state)
{
    const int top = state.ToolbarVisible ? ToolbarHeight : 0;
    layout.Toolbar1 = rect(0, 0, state.innerWidth, ToolbarHeight);
    layout.TextOpcode = rect(50, top, state.innerWidth - 100, 340);
    layout.TextParametri = rect(50, top + 300, state.innerWidth - 100, 330);
    return top + (state.OnLineHelpVisible ? 1000 : 220);
}

/// The column of buttons has the height that they need, but is not higher than its editor.
QRect column(const ProjectWindowState &state, const QRect &editor)
{
    const int height = std::min(state.columnHeight, editor.height() - 50);
    return rect(0, editor.y() + 50, ColumnWidth, std::max(height, LeastColumnHeight));
}

/// Places the controls around an editor of the horizontal arrangement.
void followHorizontal(HalfLayout &half, const ProjectWindowState &state)
{
    const QRect &editor = half.editor;
    half.label = rect(410, editor.y() - 220, state.innerWidth, LabelHeight);
    half.toolbar = column(state, editor);
    half.toolbarRoom = half.toolbar.width();
    half.gutter = rect(ColumnWidth, editor.y(), state.gutterWidth, editor.height());
}

/// Places the controls around an editor whose half begins at \a left and has its rows above it.
void followRows(HalfLayout &half, const ProjectWindowState &state, int left, const QRect &label,
                int toolbarWidth)
{
    const QRect &editor = half.editor;
    half.label = rect(label.x(), editor.y() - 650, label.width(), LabelHeight);
    half.toolbar = rect(left, editor.y() - 400, toolbarWidth, state.toolbarHeight);
    half.toolbarRoom = std::clamp(state.innerWidth - left, 0, toolbarWidth);
    half.gutter = rect(left, editor.y(), state.gutterWidth, editor.height());
}

void followVertical(ProjectLayout &layout, const ProjectWindowState &state)
{
    const int middle = endOf(layout.orchestra.editor);
    const int half = state.innerWidth / 2;
    followRows(layout.orchestra, state, 0, rect(50, 0, half - 10, 0), half);
    followRows(layout.score, state, middle, rect(middle, 0, half - 10, 0), half);
    layout.orchestra.toolbarRoom = std::min(half, middle);
    const QRect &editor = layout.orchestra.editor;
    layout.splitLine = rect(middle - LineWidth, editor.y(), LineWidth, editor.height());
}

void placeHorizontal(ProjectLayout &layout, const ProjectWindowState &state, int top)
{
    const int left = ColumnWidth + gutterWidth(state);
    const int width = state.innerWidth - left;
    const int height = std::max(state.innerHeight - top - 280, 0) / 2;
    layout.orchestra.editor = rect(left, top, width, height);
    layout.score.editor = rect(left, top + height + 300, width, height);
    followHorizontal(layout.orchestra, state);
    followHorizontal(layout.score, state);
    layout.SplitterH = {state.innerWidth - (state.grabWidth + 50), layout.score.label.y()};
}

void placeVertical(ProjectLayout &layout, const ProjectWindowState &state, int top)
{
    const int left = gutterWidth(state);
    const int width = std::max(state.innerWidth - 2 * left, 0) / 2;
    const int height = state.innerHeight - top;
    layout.orchestra.editor = rect(left, top, width, height);
    layout.score.editor = rect(endOf(layout.orchestra.editor) + left, top, width, height);
    followVertical(layout, state);
    layout.SplitterV = {endOf(layout.orchestra.editor) - GripIndent, layout.score.label.y()};
}

void placeAlone(HalfLayout &half, const ProjectWindowState &state, int top)
{
    const int left = gutterWidth(state);
    half.editor = rect(left, top, state.innerWidth - left, state.innerHeight - top);
    followRows(half, state, 0, rect(50, 0, state.innerWidth, 0), state.innerWidth);
}

} // namespace

QString arrangementName(Arrangement arrangement)
{
    return QLatin1String(names[std::size_t(arrangement)]);
}

bool showsOrchestra(Arrangement arrangement) { return arrangement != Arrangement::Score; }

bool showsScore(Arrangement arrangement) { return arrangement != Arrangement::Orchestra; }

ProjectLayout arrangeProject(const ProjectWindowState &state)
{
    ProjectLayout layout;
    const int top = placeTopBand(layout, state);
    switch (state.arrangement) {
    case Arrangement::Horizontal:
        placeHorizontal(layout, state, top);
        break;
    case Arrangement::Vertical:
        placeVertical(layout, state, top + RowsAboveEditor);
        break;
    case Arrangement::Orchestra:
        placeAlone(layout.orchestra, state, top + RowsAboveEditor);
        break;
    case Arrangement::Score:
        placeAlone(layout.score, state, top + RowsAboveEditor);
        break;
    }
    return layout;
}

std::optional<ProjectLayout> dragSplitterH(const ProjectWindowState &state, ProjectLayout layout,
                                           int top)
{
    QRect &first = layout.orchestra.editor;
    QRect &second = layout.score.editor;
    if (top < first.y() + 800 || top > state.innerHeight - 1000)
        return std::nullopt;
    layout.SplitterH.setY(top);
    first = rect(first.x(), first.y(), first.width(), top - first.y() - 80);
    second = rect(second.x(), top + 220, second.width(), state.innerHeight - (top + 220));
    followHorizontal(layout.orchestra, state);
    followHorizontal(layout.score, state);
    return layout;
}

std::optional<ProjectLayout> dragSplitterV(const ProjectWindowState &state, ProjectLayout layout,
                                           int left)
{
    QRect &first = layout.orchestra.editor;
    QRect &second = layout.score.editor;
    if (left < 800 || left > state.innerWidth - 1200)
        return std::nullopt;
    layout.SplitterV.setX(left);
    first = rect(first.x(), first.y(), left - first.x() + GripIndent, first.height());
    const int secondLeft = endOf(first) + gutterWidth(state);
    second = rect(secondLeft, second.y(), state.innerWidth - secondLeft, second.height());
    followVertical(layout, state);
    return layout;
}

} // namespace ardiphon
