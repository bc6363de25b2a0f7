#include "language/TextDifference.h"

namespace ardiphon {

namespace {

bool isLineEnd(char byte) { return byte == '\r' || byte == '\n'; }

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

Places behindCommonHead(QByteArrayView a, QByteArrayView b)
{
    Places at{0, 0};
    while (at.a < a.size() && at.b < b.size()) {
        if (isLineEnd(a[at.a]) && isLineEnd(b[at.b])) {
            at.a += lineEndLengthAt(a, at.a);
            at.b += lineEndLengthAt(b, at.b);
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
    Places at{a.size(), b.size()};
    while (at.a > head.a && at.b > head.b) {
        if (isLineEnd(a[at.a - 1]) && isLineEnd(b[at.b - 1])) {
            at.a -= lineEndLengthBefore(a, at.a);
            at.b -= lineEndLengthBefore(b, at.b);
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

} // namespace ardiphon
