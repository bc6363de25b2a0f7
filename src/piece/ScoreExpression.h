#pragma once

#include <QByteArrayView>

namespace ardiphon {

/// What a z stands for: a time that never comes.
inline constexpr double ScoreEternity = 800'000'000'000.0;

/// The value of \a token, a field of a score without blanks, and 0 where it is no number.
double scoreNumber(QByteArrayView token);

/// The value of the expression in brackets that begins at \a at in \a text, and \a at after its end
/// (the end of the text where the bracket is not closed). What is wrong in it counts as 0, and ~,
/// which gives another number at each run, as a half. Takes time in proportion to its length, at
/// any depth.
double scoreExpression(QByteArrayView text, qsizetype &at);

} // namespace ardiphon
