#pragma once

#include "language/LineRun.h"
#include "piece/Piece.h"

#include <optional>

namespace ardiphon {

/// An instrument or a user-defined opcode of a piece, from its heading to its end.
struct PieceBodyLines
{
    LandmarkKind kind = LandmarkKind::Instrument; ///< or Opcode
    QStringList names;                            ///< an instrument may have several
    LineRun lines; ///< to the end of the text, or before the next heading, where its end is missing
    int headingLine = 1;
};

/// The body that \a line is in, its first and last line included. None between two bodies.
std::optional<PieceBodyLines> bodyAt(const Piece &piece, const PieceText &text, int line);

/// The last line of what begins at \a line and can be folded: a body, a block of statements, a
/// comment over lines or of several lines, a macro, a section of the file, a section of the score;
/// the longest where several begin. 0 where nothing begins, it ends on the same line, or there is
/// no such line.
int lastLineOfBlock(const Piece &piece, const PieceText &text, int line);

/// The innermost of what can be folded that has \a line in it: its first and its last line. Empty
/// where there is none.
LineRun blockAround(const Piece &piece, const PieceText &text, int line);

/// All that can be folded without hiding another of its kind: bodies, comments, macros, sections
/// and loops of the score; not the sections of a unified file. Each from its first to its last
/// line, in their order.
QList<LineRun> outerBlocks(const Piece &piece, const PieceText &text);

} // namespace ardiphon
