#pragma once

#include "piece/CodeState.h"

#include <QByteArrayView>
#include <QVarLengthArray>

#include <optional>

namespace ardiphon {

/// A piece of a line: its first byte, counted from 0, and how many there are.
struct ScoreRange
{
    int start = 0;
    int length = 0;

    /// What stands there. \a line is the line that the range was read from.
    QByteArrayView in(QByteArrayView line) const { return line.sliced(start, length); }

    friend bool operator==(const ScoreRange &, const ScoreRange &) = default;
};

/// A word with a # in front, which says how the score is read and is no statement.
struct ScoreDirective
{
    enum class Kind : quint8 { Define, Undef, Include, Ifdef, Ifndef, Else, End };

    Kind kind = Kind::Define;
    ScoreRange word; ///< the # and its word, as "#define"
    ScoreRange
        name; ///< of the macro; of Include the file, without its quotes. Empty with Else and End
    QVarLengthArray<ScoreRange, 4> arguments; ///< the names of a macro's arguments
    ScoreRange text; ///< of Define: what the macro stands for, as far as it is on this line
};

/// One line of a score.
struct ScoreStatement
{
    /// The fields of a line that are kept; what follows is left out.
    static constexpr int MostFields = 2000;

    /// The statement's letter, '{' or '}'; '$' where the line begins with the call of a macro,
    /// which shows what it is only when it is expanded; 0 where the line has no statement.
    char letter = 0;
    int letterAt = 0;
    /// What follows the letter, in order: numbers, names, signs, a string with its quotes, an
    /// expression with its brackets, a call with its arguments. The first is p1 (with '$' it is the
    /// call itself).
    QVarLengthArray<ScoreRange, 16> fields;
    QVarLengthArray<ScoreDirective, 1> directives;
};

/// The instrument that a note is for: its number, or its name.
struct ScoreInstrument
{
    int number = 0;      ///< without sign and fraction; 0 where it has a name
    QByteArrayView name; ///< without quotes, sign and fraction
    bool turnsOff = false;
};

/// Reads \a line (without its end; bytes of any kind), of which \a state has what the lines above
/// leave open, and puts into \a state what it leaves open itself: Code, BlockComment or Macro. A
/// text in {{ }} or R"( )" is unknown in a score; such a state counts as Code. Takes time in
/// proportion to the line, and no memory of its own for one of usual length.
///
/// A line is read by itself: one that goes on because that above ends in a \ is read as if it
/// began.
ScoreStatement readScoreLine(QByteArrayView line, CodeState &state);

/// Whether the language has statements of that letter ('{' and '}' among them).
bool isScoreStatement(char letter);

/// The instrument that \a field, the first of a statement i, d or q, gives by a number ("1", "1.3",
/// "-1") or a quoted name; nothing where it is carried (".") or has to be worked out (a macro, an
/// expression).
std::optional<ScoreInstrument> instrumentOf(QByteArrayView field);

} // namespace ardiphon
