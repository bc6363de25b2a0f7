#pragma once

namespace ardiphon {

/// Layouts are measured in twips, 15 to a logical pixel.
inline constexpr int TwipsPerPixel = 15;

constexpr int toPixels(int twips) { return twips / TwipsPerPixel; }
constexpr int toTwips(int pixels) { return pixels * TwipsPerPixel; }

} // namespace ardiphon
