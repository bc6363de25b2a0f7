#pragma once

#include "piece/PieceSymbol.h"

namespace ardiphon {

/// Why the language does not allow \a name in the place of the name of \a symbol, in a sentence
/// that can be shown; "" where it does. Whether the name is taken is another question.
QString nameRefusal(const Piece &piece, const PieceSymbol &symbol, const QString &name);

/// \a name as the piece tells names apart: the number of an instrument without zeros in front.
QByteArray comparableName(const PieceSymbol &symbol, const QString &name);

/// Whether \a name is all digits.
bool isNumberName(QByteArrayView name);

} // namespace ardiphon
