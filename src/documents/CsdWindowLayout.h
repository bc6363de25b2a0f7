#pragma once

#include <QRect>

namespace ardiphon {

/// What the places of the CSD window's controls depend on. Lengths are in twips.
struct CsdWindowState
{
    int innerWidth = 0;
    int innerHeight = 0;
    int gutterWidth = 0; ///< of the text "000000" in the gutter's font
    bool LineNumbersVisible = false;
    bool BookBarVisible = false;
    bool OnLineHelpVisible = false;
    bool ToolbarVisible = false;
    bool split = false;
};

/// The places of the controls of the CSD window, in twips from its inner top left corner. A hidden
/// control has the place that it would take.
struct CsdWindowLayout
{
    QRect Toolbar1;
    QRect TextOpcode;
    QRect TextParametri;
    QRect PicNumeri;
    QRect LEDIT1;
    QRect PicNumeri2;
    QRect LEDIT2;
    QRect LabelBookmarks;
    QRect Tree;
    QRect LabelOwnBook;
    QRect Tree2;
    QRect LabelTags;
    QRect List1;
    QRect Frame1;
    QRect splitLine; ///< over the bottom of LEDIT1 and of its gutter
};

/// The layout rules of the CSD window. No length is negative, however small the window is.
CsdWindowLayout ArrangeWindow(const CsdWindowState &state);

} // namespace ardiphon
