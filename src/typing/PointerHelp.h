#pragma once

#include "piece/Piece.h"
#include "typing/OpcodeLookup.h"

#include <QStringList>

#include <optional>

namespace ardiphon {

/// What the name under a pointer is.
struct PointerHelp
{
    PiecePlace place; ///< of the name, or of the field of the score
    QStringList code; ///< signatures, or lines of the piece
    QString sentence; ///< what is said of it; "" for nothing

    friend bool operator==(const PointerHelp &, const PointerHelp &) = default;
};

/// The help for the character \a column, from 0, of \a line of \a text: an opcode's signatures and
/// its sentence, the line that gives a variable its first value, a macro's text, the statement of a
/// table whose number is an argument, an instrument's heading with its comment, what a p-field is
/// called. None between names, in comments, and for names that the piece says nothing of.
std::optional<PointerHelp> pointerHelp(const Piece &piece, const PieceText &text, int line,
                                       int column, const OpcodeLookup &lookup);

} // namespace ardiphon
