#pragma once

#include <QColor>

/// The colours of the choosers, the same on a light and on a dark desktop.
namespace ardiphon::chooser {

inline constexpr QColor Back{246, 247, 249};
inline constexpr QColor Edge{47, 74, 109};
inline constexpr QColor Strip{47, 74, 109};
inline constexpr QColor StripText{255, 255, 255};
inline constexpr QColor Text{28, 36, 48};
inline constexpr QColor QuietText{104, 112, 124};
inline constexpr QColor Lit{180, 190, 200}; ///< the back of a label under the mouse

} // namespace ardiphon::chooser
