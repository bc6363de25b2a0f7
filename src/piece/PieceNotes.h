#pragma once

#include "piece/Piece.h"

#include <optional>

namespace ardiphon {

/// The name or the number of the instrument that \a line of the score plays, which it may carry
/// from a line above; "" for none.
QByteArray instrumentPlayed(const PieceText &text, int line);
/// The next line of the score behind \a line that plays one of the instruments \a names; where
/// there is none, the first of the score.
std::optional<PiecePlace> nextNote(const Piece &piece, const QStringList &names, int line);

} // namespace ardiphon
