#pragma once

#include "check/CompilerMessage.h"
#include "language/LineRun.h"
#include "piece/Piece.h"

namespace ardiphon {

/// What a message about the score says, in a sentence of ours.
QString scoreSentence(const CompilerMessage &message);

/// Where the message is meant, of the lines \a lines of \a score: the first place that it can be
/// meant for, as the compiler names none that can be relied on.
PiecePlace scorePlace(const CompilerMessage &message, const PieceText &score, LineRun lines);

/// Whether \a text is a message about the score, in the words of the compiler.
bool isScoreMessage(const QString &text);
/// Whether that message is the last one, as the compiler reads no further.
bool endsReading(const QString &text);

} // namespace ardiphon
