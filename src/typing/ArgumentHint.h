#pragma once

#include "piece/Piece.h"
#include "typing/OpcodeLookup.h"

#include <optional>

namespace ardiphon {

/// A line of a hint, with the part of it that the caret is at.
struct HintLine
{
    QString text;
    int boldStart = 0;
    int boldLength = 0; ///< 0 where the caret is at none

    friend bool operator==(const HintLine &, const HintLine &) = default;
};

/// What helps to write the arguments at the caret.
struct ArgumentHint
{
    PiecePlace place; ///< of the name of the opcode, or of the line's beginning in the score
    QList<HintLine> lines;

    friend bool operator==(const ArgumentHint &, const ArgumentHint &) = default;
};

/// The hint for the caret at \a column of \a line of \a text: the signatures of the call that it is
/// in which still fit what is written, six at most, or the p-fields of the instrument that the line
/// of the score plays. None where there is nothing to say.
std::optional<ArgumentHint> argumentHint(const Piece &piece, const PieceText &text, int line,
                                         int column, const OpcodeLookup &lookup);

/// The p-field of that number with what \a instrument of the piece calls it, as "p4 iamp".
QString scoreFieldText(const Piece &piece, const QByteArray &instrument, int number);

} // namespace ardiphon
