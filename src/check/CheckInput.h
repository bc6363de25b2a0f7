#pragma once

#include "check/MessagePlaces.h"
#include "platform/ProgramCommand.h"

#include <QByteArray>
#include <QStringList>

namespace ardiphon {

/// What the compiler is given to check a piece: the orchestra and the score as two files, whose
/// names these are, and options. So nothing of a unified file that would write a file or open a
/// device reaches it.
struct CheckInput
{
    CheckedLines orchestra{QStringLiteral("piece.orc"), {}, 1};
    CheckedLines score{QStringLiteral("piece.sco"), {}, 1};
    QByteArray orchestraText;
    QByteArray scoreText; ///< without notes where the score is not for the compiler
    QStringList options;
    bool isTooLong = false; ///< the orchestra has more than LongestCheckedOrchestra lines: no texts
    bool isUnified = false; ///< the compiler looks for included files beside the document
};

/// A longer orchestra is not checked: it would take too long to copy it at once.
inline constexpr int LongestCheckedOrchestra = 50'000;
/// A longer score is not checked by the compiler.
inline constexpr int LongestCheckedScore = 5000;

/// What is to be checked of \a piece, all of which has been read. A text without an orchestra gives
/// empty lines. A score that another program makes is left out, as that would be run.
CheckInput checkInputOf(const Piece &piece);

/// The same lines as a compile of the documents has them, which are named \a orchestra and
/// \a score, or of a unified file \a orchestra.
CheckInput compiledLines(const Piece &piece, const QString &orchestra, const QString &score);

/// Those of the options that a unified file gives by \a text that change what its orchestra and its
/// score mean: macros, environment and header values; none that opens or writes anything.
QStringList checkedOptions(const QString &text);

/// The command that checks the files of \a input in \a folder, which has its closing "/". The
/// document is in \a documentFolder; the compiler runs and finds included files as in a compile.
ProgramCommand checkCommand(const QString &compiler, const CheckInput &input, const QString &folder,
                            const QString &documentFolder);

} // namespace ardiphon
