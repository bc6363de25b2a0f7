#pragma once

#include <QRect>

namespace ardiphon {

enum class ScreenHalf { Upper, Lower, Left, Right };

/// That half of \a workArea; the other dimension stays whole.
QRect halfOf(const QRect &workArea, ScreenHalf half);

} // namespace ardiphon
