#pragma once

#include <QRect>

namespace ardiphon {

enum class ScreenHalf { Upper, Lower, Left, Right };

/// The size of a window that does not fill a work area of that size: large enough to work in, with
/// room around it for a frame and for a glance at what lies behind.
QSize normalSize(const QSize &workArea);

/// That half of \a workArea; the other dimension stays whole.
QRect halfOf(const QRect &workArea, ScreenHalf half);

} // namespace ardiphon
