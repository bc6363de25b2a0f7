#pragma once

#include "piece/Piece.h"
#include "typing/Signature.h"

namespace ardiphon {

/// An opcode that a piece defines, as its heading and its xin and xout say.
struct UserSignature
{
    Signature signature; ///< types that have a default show it, as "[, ipan = 0]"
    PiecePlace place;    ///< of its name in the heading
    QString comment;     ///< behind the heading, or in the lines above it
};

/// The opcodes of that name, one for each of its headings. Reads up to 200 lines of each body.
QList<UserSignature> userSignaturesOf(const Piece &piece, QByteArrayView name);

/// What a comment says that stands behind the code of \a line, else in the lines right above it
/// that have nothing but a comment; "" for nothing.
QString commentOf(const PieceText &text, int line);

} // namespace ardiphon
