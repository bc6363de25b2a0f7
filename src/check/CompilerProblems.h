#pragma once

#include "check/CompilerMessage.h"
#include "check/MessagePlaces.h"
#include "check/Problem.h"

#include <functional>

namespace ardiphon {

/// What is known of the opcodes of the language.
struct OpcodeWords
{
    QStringList names;
    std::function<QString(const QString &name)> parameters; ///< its forms, as in the word tables
};

/// What the compiler was given of a piece.
struct CheckedPiece
{
    const Piece &piece;
    CheckedLines orchestra;
    CheckedLines score;
};

/// The problems that \a messages tell of, each with its place in the editors and a sentence of
/// ours, and no two of the same place.
QList<Problem> problemsOf(const QList<CompilerMessage> &messages, const CheckedPiece &checked,
                          const OpcodeWords &words);

/// The types of arguments as the compiler writes them, in words: "Sck" is "a text, a number and a
/// control value"; "nothing" for none.
QString typesInWords(const QString &types);

} // namespace ardiphon
