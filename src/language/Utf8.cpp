#include "language/Utf8.h"

#include <QStringDecoder>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace ardiphon {

namespace {

constexpr bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// The length of the leading part of the text that has no byte above 127.
qsizetype asciiPrefix(QByteArrayView text)
{
    constexpr std::uint64_t highBits = 0x8080808080808080u;
    qsizetype at = 0;
    for (; at + 8 <= text.size(); at += 8) {
        std::uint64_t block;
        std::memcpy(&block, text.data() + at, sizeof block);
        if (block & highBits)
            break;
    }
    while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80)
        ++at;
    return at;
}

bool isWellFormed(char32_t code, int length)
{
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    return code >= smallest[length] && code <= 0x10FFFF && !(code >= 0xD800 && code <= 0xDFFF);
}

} // namespace

Utf8Character characterAt(QByteArrayView text, qsizetype at)
{
    const auto first = static_cast<unsigned char>(text[at]);
    if (first < 0x80)
        return {first, 1};
    const int length = std::countl_one(first);
    if (length < 2 || length > 4 || at + length > text.size())
        return {first, 1};
    char32_t code = first & (0x7Fu >> length);
    for (int i = 1; i < length; ++i) {
        if (!isContinuation(text[at + i]))
            return {first, 1};
        code = code << 6 | (static_cast<unsigned char>(text[at + i]) & 0x3Fu);
    }
    return isWellFormed(code, length) ? Utf8Character{code, length} : Utf8Character{first, 1};
}

qsizetype characterBefore(QByteArrayView text, qsizetype at)
{
    for (qsizetype start = at - 1; start >= std::max<qsizetype>(0, at - 4); --start) {
        if (!isContinuation(text[start]))
            return start + characterAt(text, start).length == at ? start : at - 1;
    }
    return at - 1;
}

QString stringOf(QByteArrayView text)
{
    if (!text.startsWith("\xEF\xBB\xBF"))
        return QString::fromUtf8(text);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(text);
}

qsizetype utf16Length(QByteArrayView text)
{
    qsizetype units = 0;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype ascii = asciiPrefix(text.sliced(at));
        at += ascii;
        units += ascii;
        if (at < text.size()) {
            const Utf8Character character = characterAt(text, at);
            at += character.length;
            units += character.code > 0xFFFF ? 2 : 1;
        }
    }
    return units;
}

qsizetype bytesOfUtf16(QByteArrayView text, qsizetype characters)
{
    qsizetype at = std::min(asciiPrefix(text), std::max<qsizetype>(characters, 0));
    qsizetype units = at;
    while (at < text.size() && units < characters) {
        const Utf8Character character = characterAt(text, at);
        units += character.code > 0xFFFF ? 2 : 1;
        if (units > characters)
            break;
        at += character.length;
    }
    return at;
}

} // namespace ardiphon
