#pragma once

#include "piece/Piece.h"
#include "typing/CompletionPlace.h"

namespace ardiphon {

/// What of a place the code says; columns are bytes of the line.
struct CodePlace
{
    PlaceKind kind = PlaceKind::Nothing;
    int start = 0; ///< of the word
    QByteArray opcode;
    int argument = 0;
    QList<ValueType> left;
    bool isQuoted = false;
    bool isInValue = false;
    QByteArray open;
};

/// The place behind \a before, the beginning of \a line of \a text, in the orchestra. Of the lines
/// above it reads those of the same statement.
CodePlace orchestraPlace(const Piece &piece, const PieceText &text, int line,
                         QByteArrayView before);

/// The same in the score, whose lines above leave open what \a state tells.
CodePlace scorePlace(QByteArrayView before, CodeState state);

/// Whether a text that begins with the quotes at \a start, the last in \a line, is still open.
bool isOpenText(QByteArrayView line, int start);
/// The first byte of the name, number or tag that ends at the end of \a line.
int wordStart(QByteArrayView line);

} // namespace ardiphon
