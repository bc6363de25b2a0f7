#pragma once

#include <QStringView>
#include <QVarLengthArray>

#include <optional>

namespace ardiphon {

/// How well a name is what is typed, the best last.
enum class MatchGrade : quint8 {
    Scattered, ///< the letters are in the name, in their order
    Starts,    ///< each at a start, of the name, of a word or a number in it, or beside the last
    Beginning, ///< the name begins with them
    Exact,     ///< the name is what is typed, also in its capitals
};

struct NameMatch
{
    MatchGrade grade = MatchGrade::Scattered;
    int score = 0;                    ///< of two of the same grade the higher is the better
    QVarLengthArray<int, 16> letters; ///< where in the name the typed ones are
};

/// How \a typed is in \a name: its letters in their order, whatever their case. A capital behind a
/// small letter, the first digit of a number, a letter behind _ and the one behind the \a prefix,
/// which tells the type of a variable, count as starts; letters there, or side by side, are worth
/// more. None where a letter is missing. Nothing typed is in every name. Costs what both lengths
/// multiplied take, of a name's first 64 letters.
std::optional<NameMatch> matchName(QStringView typed, QStringView name, int prefix = 0);

} // namespace ardiphon
