#include "language/TextDifference.h"

#include "language/LineEnds.h"

#include <cstdint>
#include <cstring>

namespace ardiphon {

namespace {

using Block = std::uint64_t;
constexpr qsizetype BlockSize = sizeof(Block);

Block blockAt(QByteArrayView text, qsizetype at)
{
    Block block;
    std::memcpy(&block, text.data() + at, BlockSize);
    return block;
}

bool isInsideCharacter(QByteArrayView text, qsizetype at)
{
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

qsizetype lineEndLengthAt(QByteArrayView text, qsizetype at)
{
    return text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n' ? 2 : 1;
}

qsizetype lineEndLengthBefore(QByteArrayView text, qsizetype at)
{
    return text[at - 1] == '\n' && at > 1 && text[at - 2] == '\r' ? 2 : 1;
}

/// A place in each of two texts.
struct Places
{
    qsizetype a;
    qsizetype b;
};

/// Skips bytes that are the same in both texts, many at a time, but never half a CR LF.
Places behindSameBytes(QByteArrayView a, QByteArrayView b, Places from)
{
    Places at = from;
    while (at.a + BlockSize <= a.size() && at.b + BlockSize <= b.size() &&
           blockAt(a, at.a) == blockAt(b, at.b)) {
        at.a += BlockSize;
        at.b += BlockSize;
    }
    if (at.a > from.a && a[at.a - 1] == '\r')
        return {at.a - 1, at.b - 1};
    return at;
}

/// The same towards the beginning, as far as \a head.
Places beforeSameBytes(QByteArrayView a, QByteArrayView b, Places from, Places head)
{
    Places at = from;
    while (at.a - BlockSize >= head.a && at.b - BlockSize >= head.b &&
           blockAt(a, at.a - BlockSize) == blockAt(b, at.b - BlockSize)) {
        at.a -= BlockSize;
        at.b -= BlockSize;
    }
    if (at.a < from.a && a[at.a] == '\n')
        return {at.a + 1, at.b + 1};
    return at;
}

Places behindCommonHead(QByteArrayView a, QByteArrayView b)
{
    Places at = behindSameBytes(a, b, {0, 0});
    while (at.a < a.size() && at.b < b.size()) {
        if (isLineEnd(a[at.a]) && isLineEnd(b[at.b])) {
            at.a += lineEndLengthAt(a, at.a);
            at.b += lineEndLengthAt(b, at.b);
            at = behindSameBytes(a, b, at);
        } else if (a[at.a] == b[at.b]) {
            ++at.a;
            ++at.b;
        } else {
            break;
        }
    }
    while (isInsideCharacter(a, at.a) || isInsideCharacter(b, at.b)) {
        --at.a;
        --at.b;
    }
    return at;
}

/// The tail does not reach into the head: a text that repeats itself is not counted twice.
Places beforeCommonTail(QByteArrayView a, QByteArrayView b, Places head)
{
    Places at = beforeSameBytes(a, b, {a.size(), b.size()}, head);
    while (at.a > head.a && at.b > head.b) {
        if (isLineEnd(a[at.a - 1]) && isLineEnd(b[at.b - 1])) {
            at.a -= lineEndLengthBefore(a, at.a);
            at.b -= lineEndLengthBefore(b, at.b);
            at = beforeSameBytes(a, b, at, head);
        } else if (a[at.a - 1] == b[at.b - 1]) {
            --at.a;
            --at.b;
        } else {
            break;
        }
    }
    while (isInsideCharacter(a, at.a) || isInsideCharacter(b, at.b)) {
        ++at.a;
        ++at.b;
    }
    return at;
}

} // namespace

TextDifference differenceOf(QByteArrayView present, QByteArrayView wanted)
{
    const Places head = behindCommonHead(present, wanted);
    const Places tail = beforeCommonTail(present, wanted, head);
    return {{head.a, tail.a}, {head.b, tail.b}};
}

TextDifference differenceOf(QByteArrayView present, QByteArrayView wanted, qsizetype changeEnd)
{
    if (changeEnd >= 0 && changeEnd <= wanted.size()) {
        const Places tail = beforeCommonTail(present, wanted, {0, changeEnd});
        const Places head = behindCommonHead(present.first(tail.a), wanted.first(tail.b));
        // All between the two is inserted or deleted: no shorter stretches are possible.
        if (head.a == tail.a || head.b == tail.b)
            return {{head.a, tail.a}, {head.b, tail.b}};
    }
    return differenceOf(present, wanted);
}

} // namespace ardiphon
