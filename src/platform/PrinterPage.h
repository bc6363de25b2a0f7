#pragma once

namespace ardiphon {

/// The page of a printer, in printer's twips: 1440 to an inch, whatever the resolution. The scale
/// is the part of the paper that the printer can reach; places on it count from its corner.
struct PrinterPage
{
    int paperWidth = 0;
    int paperHeight = 0;
    int scaleWidth = 0;
    int scaleHeight = 0;
    int offsetX = 0; ///< from the paper's left edge to the scale
    int offsetY = 0; ///< from the paper's upper edge to the scale
};

} // namespace ardiphon
