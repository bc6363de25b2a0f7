#pragma once

#include "piece/CodeTokens.h"
#include "piece/PieceArguments.h"
#include "piece/PieceWord.h"
#include "piece/ScoreWords.h"

namespace ardiphon {

/// What a line of the orchestra leaves open for the words of the next, besides its PieceState.
struct OrchestraContext
{
    OpenCalls calls;
    OpenMacro macro;
    bool isScoreText = false; ///< the text in {{ }} that is open holds lines of a score
};

/// Adds the words of a line of the orchestra to \a words, in the order of the line; makes \a state
/// and \a context those of the next line. No text is refused.
void readOrchestraWords(QByteArrayView line, PieceState &state, OrchestraContext &context,
                        PieceWords &words);

} // namespace ardiphon
