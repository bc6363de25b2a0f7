#pragma once

#include <QRect>
#include <QString>

#include <optional>

namespace ardiphon {

/// How the project's window shows its two editors.
enum class Arrangement { Horizontal, Vertical, Orchestra, Score };

/// The word for an arrangement in the configuration.
QString arrangementName(Arrangement arrangement);

bool showsOrchestra(Arrangement arrangement);
bool showsScore(Arrangement arrangement);

/// What the places of the controls depend on. Lengths are in twips.
struct ProjectWindowState
{
    int innerWidth = 0;
    int innerHeight = 0;
    int gutterWidth = 0;   ///< of the text "000000" in the gutters' font
    int toolbarHeight = 0; ///< the height of a half's toolbar as a row
    int columnHeight = 0;  ///< its height as a column
    int grabWidth = 0;     ///< of the grip between the two halves
    bool LineNumbersVisible = false;
    bool OnLineHelpVisible = false;
    bool ToolbarVisible = false;
    Arrangement arrangement = Arrangement::Horizontal;
};

/// The places of the controls of one half, in twips from the inner top left corner of the window.
struct HalfLayout
{
    QRect editor;
    QRect gutter;
    QRect label;
    QRect toolbar;
    int toolbarRoom = 0; ///< the width of the toolbar that the other half and the window leave free
};

/// The places of the controls of the project's window. The half that an arrangement hides and the
/// grip that it does not use have no place.
struct ProjectLayout
{
    QRect Toolbar1;
    QRect TextOpcode;
    QRect TextParametri;
    HalfLayout orchestra;
    HalfLayout score;
    QPoint SplitterH; ///< its top left corner
    QPoint SplitterV;
    QRect splitLine; ///< over the right edge of the orchestra beside the score
};

/// The layout rules of the project's window. No length is negative.
ProjectLayout arrangeProject(const ProjectWindowState &state);

/// The layout with the horizontal grip dragged to \a top; nothing where that is beyond its limits:
/// 800 below the top of the first editor, and 1000 above the bottom of the window.
std::optional<ProjectLayout> dragSplitterH(const ProjectWindowState &state, ProjectLayout layout,
                                           int top);

/// The layout with the vertical grip dragged to \a left; nothing where that is beyond its limits:
/// 800 from the left side of the window, and 1200 from its right side.
std::optional<ProjectLayout> dragSplitterV(const ProjectWindowState &state, ProjectLayout layout,
                                           int left);

} // namespace ardiphon
