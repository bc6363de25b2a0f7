#pragma once

namespace ardiphon {

/// A part of one line: \a length characters from \a column on. Lines count from 1, columns, in
/// characters (QChars), from 0.
struct TextSpan
{
    int line = 1;
    int column = 0;
    int length = 0;

    friend bool operator==(const TextSpan &, const TextSpan &) = default;
};

/// What a part of the text is marked as, beside its colours.
enum class MarkKind { Occurrence, Bracket, Error, Warning, Hint };

} // namespace ardiphon
