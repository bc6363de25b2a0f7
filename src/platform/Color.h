#pragma once

#include <cstdint>

namespace ardiphon {

/// A colour as the settings store keeps it: red + 256 green + 65536 blue, each from 0 to 255.
struct Color
{
    std::uint32_t value = 0;

    static constexpr Color rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue)
    {
        return Color{(red & 0xFF) | (green & 0xFF) << 8 | (blue & 0xFF) << 16};
    }
    constexpr int red() const { return int(value & 0xFF); }
    constexpr int green() const { return int(value >> 8 & 0xFF); }
    constexpr int blue() const { return int(value >> 16 & 0xFF); }

    friend constexpr bool operator==(Color, Color) = default;
};

} // namespace ardiphon
