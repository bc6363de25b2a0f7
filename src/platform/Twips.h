#pragma once

#include <QRect>

namespace ardiphon {

/// Layouts are measured in twips, 15 to a logical pixel.
inline constexpr int TwipsPerPixel = 15;

constexpr int toPixels(int twips) { return twips / TwipsPerPixel; }
constexpr int toTwips(int pixels) { return pixels * TwipsPerPixel; }

constexpr QPoint toPixels(QPoint twips) { return {toPixels(twips.x()), toPixels(twips.y())}; }
constexpr QSize toPixels(QSize twips)
{
    return {toPixels(twips.width()), toPixels(twips.height())};
}
constexpr QRect toPixels(const QRect &twips)
{
    return {toPixels(twips.topLeft()), toPixels(twips.size())};
}

} // namespace ardiphon
