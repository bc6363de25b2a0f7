#pragma once

#include "piece/Piece.h"

#include <QList>
#include <QString>

namespace ardiphon {

enum class Severity : quint8 {
    Error,   ///< the compiler refuses the piece
    Warning, ///< the piece does not sound as it is written
    Hint     ///< it may be meant
};

/// A change of the text that would mend a problem.
struct ProblemFix
{
    QString caption;  ///< as "Insert oscili"
    PiecePlace place; ///< what is replaced
    QString text;

    friend bool operator==(const ProblemFix &, const ProblemFix &) = default;
};

/// Something that is wrong with a piece, or may be, and where.
struct Problem
{
    Severity severity = Severity::Error;
    PiecePlace place;
    QString sentence;
    QString source; ///< who says so: "compiler" or the word of one of our own checks
    QList<ProblemFix> fixes = {};

    friend bool operator==(const Problem &, const Problem &) = default;
};

/// Who says what the compiler says.
inline const QString CompilerSource = QStringLiteral("compiler");

} // namespace ardiphon
