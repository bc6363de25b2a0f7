#pragma once

#include "piece/PieceWord.h"
#include "piece/ScoreStatement.h"

#include <QByteArrayList>

namespace ardiphon {

/// The macro whose text is open at the end of a line; none of its arguments is a macro there.
struct OpenMacro
{
    QByteArrayList arguments;
};

/// Adds the words of a line of a score to \a words; \a state and \a macro have what the lines above
/// leave open, and then what this one does.
void readScoreWords(QByteArrayView line, CodeState &state, OpenMacro &macro, PieceWords &words);

/// The same for a part of a line of the orchestra, \a text, that holds lines of a score; \a offset
/// is where it begins. \a isQuoted where it stands in quotes, so that its own are written \". A
/// macro is no word there.
void readScoreText(QByteArrayView text, int offset, bool isQuoted, PieceWords &words);

/// Adds a word for each $NAME of \a text, which begins at \a offset of its line; the names of
/// \a arguments are arguments.
void addMacroUses(QByteArrayView text, int offset, const QByteArrayList &arguments,
                  const PieceWord &like, PieceWords &words);

/// The instrument that \a literal, a number or a name in quotes, names. False where it is none.
bool readInstrumentLiteral(QByteArrayView literal, int offset, PieceWord &word);

} // namespace ardiphon
