#pragma once

#include "check/ChecksOfPiece.h"
#include "check/CompilerProblems.h"

#include <span>

namespace ardiphon {

/// A check of what the compiler does not say.
struct PieceCheck
{
    const char *word;  ///< by which it is switched off, and the source of its problems
    const char *title; ///< for the user
    QList<Problem> (*problems)(const CheckedFacts &of);
};

/// All checks, in the order in which the user sees them.
std::span<const PieceCheck> pieceChecks();

/// What is wrong or odd in \a piece, all of which has been read, by all checks but those whose
/// words are in \a off; no check says more than a hundred. Takes time in proportion to the piece.
/// \a compilerOpcodes are those that the compiler has; empty where that is not known.
QList<Problem> pieceProblems(const Piece &piece, const OpcodeWords &words, const QSet<QString> &off,
                             const QSet<QByteArray> &compilerOpcodes = {});

/// The names of all opcodes in \a listing, which `csound -z2` writes: -z leaves old ones out. Empty
/// where it is no such list.
QSet<QByteArray> opcodesListed(const QByteArray &listing);

} // namespace ardiphon
