#pragma once

#include "check/Problem.h"

namespace ardiphon {

/// Who says what is wrong with the sections of a unified file.
inline const QString SectionSource = QStringLiteral("sections");

/// Sections of a unified file that the compiler would not read: those without an end, for which it
/// refuses the file, and ends without a beginning. None for an orchestra with its score.
QList<Problem> sectionProblems(const Piece &piece);

} // namespace ardiphon
