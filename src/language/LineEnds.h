#pragma once

namespace ardiphon {

/// Whether a QChar, or a byte of UTF-8 or Latin-1 text, ends a line, alone or with the next one.
template <typename Character>
constexpr bool isLineEnd(Character character)
{
    return character == Character('\r') || character == Character('\n');
}

} // namespace ardiphon
