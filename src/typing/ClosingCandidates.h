#pragma once

#include "typing/CandidateList.h"
#include "typing/CompletionPlace.h"

namespace ardiphon {

/// What a suggestion that closes something puts into the text, where it is missing.
struct ClosingPlace
{
    QString text; ///< as ")" or "endin"
    QString form; ///< what it closes
};

/// The bracket or the quotes that are open at the caret, where nothing but blanks and a comment
/// follows in the line.
std::optional<ClosingPlace> missingBracket(const CompletionPlace &place, QStringView behind);

/// The word that ends the innermost block, instrument or opcode around a line, where it is missing.
std::optional<ClosingPlace> missingEnd(const Piece &piece, const PieceText &text, int line);

} // namespace ardiphon
