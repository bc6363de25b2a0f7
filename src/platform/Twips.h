#pragma once

#include <QRect>

namespace ardiphon {

/// Layouts are measured in twips, 15 to a logical pixel.
inline constexpr int TwipsPerPixel = 15;

constexpr int toPixels(int twips) { return twips / TwipsPerPixel; }
constexpr int toTwips(int pixels) { return pixels * TwipsPerPixel; }

constexpr QPoint toPixels(QPoint twips) { return {toPixels(twips.x()), toPixels(twips.y())}; }
/// Edges that are the same in twips are the same in pixels.
constexpr QRect toPixels(const QRect &twips)
{
    const int left = toPixels(twips.x());
    const int top = toPixels(twips.y());
    return {left, top, toPixels(twips.x() + twips.width()) - left,
            toPixels(twips.y() + twips.height()) - top};
}

} // namespace ardiphon
