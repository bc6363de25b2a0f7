#pragma once

#include <QRect>
#include <QString>

#include <optional>

namespace ardiphon {

/// How the project's window shows its two editors.
enum class Arrangement { Horizontal, Vertical, Orchestra, Score };

/// The word under which the configuration keeps it, and back; an unknown word is Horizontal.
QString arrangementName(Arrangement arrangement);
Arrangement arrangementNamed(const QString &name);

bool showsOrchestra(Arrangement arrangement);
bool showsScore(Arrangement arrangement);

/// What the places of the controls depend on. Lengths are twips.
struct ProjectWindowState
{
    int innerWidth = 0;
    int innerHeight = 0;
    int gutterWidth = 0;   ///< of the text "000000" in the gutters' font
    int toolbarHeight = 0; ///< what a toolbar of one half takes as a row
    int columnHeight = 0;  ///< what it takes as a column
    int grabWidth = 0;     ///< of the grip between the two halves
    bool LineNumbersVisible = false;
    bool OnLineHelpVisible = false;
    bool ToolbarVisible = false;
    Arrangement arrangement = Arrangement::Horizontal;
};

/// Where the controls of one half stand, in twips from the top left corner inside the window.
struct HalfLayout
{
    QRect editor;
    QRect gutter;
    QRect label;
    QRect toolbar;
    int toolbarRoom = 0; ///< the width of the toolbar that the other half and the window leave free
};

/// Where the controls of the project's window stand. The half that an arrangement hides and the
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

/// The layout rules of the project's window. No length comes out negative.
ProjectLayout arrangeProject(const ProjectWindowState &state);

/// The layout with the horizontal grip dragged to \a top; nothing where that is beyond its limits:
/// 800 below the top of the first editor, and 1000 above the foot of the window.
std::optional<ProjectLayout> dragSplitterH(const ProjectWindowState &state, ProjectLayout layout,
                                           int top);

/// The layout with the vertical grip dragged to \a left; nothing where that is beyond its limits:
/// 800 from the left side of the window, and 1200 from its right one.
std::optional<ProjectLayout> dragSplitterV(const ProjectWindowState &state, ProjectLayout layout,
                                           int left);

} // namespace ardiphon
