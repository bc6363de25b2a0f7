#pragma once

#include <QRect>

namespace ardiphon {

enum class ScreenHalf { Upper, Lower, Left, Right };

/// The size of a window on a work area of that size that is not maximised: large enough to work in,
/// with room for its frame and for a view of what is behind it.
QSize normalSize(const QSize &workArea);

/// The given half of \a workArea.
QRect halfOf(const QRect &workArea, ScreenHalf half);

} // namespace ardiphon
