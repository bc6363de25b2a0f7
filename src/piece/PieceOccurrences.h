#pragma once

#include "piece/PieceSymbol.h"

#include <QList>

namespace ardiphon {

/// All places of \a symbol within \a within of \a text, in their order: where it is defined and
/// where it is used, also as a literal in quotes, and none that only has the same letters. The
/// ranges are of the name alone. None for an argument of a macro and for a word without a meaning.
/// Costs what these lines and a few hundred above them take.
QList<PiecePlace> occurrencesOf(const Piece &piece, const PieceSymbol &symbol,
                                const PieceText &text, LineRun within);

} // namespace ardiphon
