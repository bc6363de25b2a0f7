#pragma once

#include "piece/Piece.h"

#include <optional>

namespace ardiphon {

/// Two places that belong together, the one at the caret first.
struct PieceBrackets
{
    PiecePlace here;
    PiecePlace partner;

    friend bool operator==(const PieceBrackets &, const PieceBrackets &) = default;
};

/// The bracket or the word of a block that touches \a column, in characters from 0, of \a line, and
/// its partner: ( ) [ ] { }, if and endif, while and od and their like, switch and endsw, instr and
/// endin, opcode and endop, #ifdef and #end. From a word between (else, elseif, then, case, #else)
/// the partner is the one that begins the block. None where nothing is there or nothing belongs to
/// it, and in comments and texts. A bracket is looked for in a few hundred lines, a word in as many
/// as its body has.
std::optional<PieceBrackets> bracketsAt(const PieceText &text, int line, int column);

/// The line above \a line where the body or the block begins that \a word, as "endin" or "else",
/// would end or part if it stood there; 0 where there is none, and for any other word.
int lineOfBegin(const PieceText &text, int line, QByteArrayView word);

} // namespace ardiphon
