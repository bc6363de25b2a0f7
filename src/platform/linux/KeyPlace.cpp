#include "platform/KeyPlace.h"

#include <string_view>

namespace ardiphon {

namespace {

/// A row of keys side by side, by the display server's code of the first one.
struct KeyRow
{
    quint32 first;
    std::string_view keys;
};

constexpr KeyRow Rows[] = {
    {10, "1234567890"},
    {24, "QWERTYUIOP"},
    {38, "ASDFGHJKL"},
    {52, "ZXCVBNM"},
};

constexpr bool isPrintable(int key) { return key > 0x20 && key < 0x01000000; }

constexpr bool isLatinOrDigit(int key)
{
    return (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z');
}

} // namespace

int keyMeant(int key, quint32 scanCode)
{
    if (!isPrintable(key) || isLatinOrDigit(key))
        return key;
    for (const KeyRow &row : Rows)
        if (scanCode >= row.first && scanCode - row.first < row.keys.size())
            return row.keys[scanCode - row.first];
    return key;
}

} // namespace ardiphon
