#pragma once

#include "piece/Piece.h"

#include <optional>

namespace ardiphon {

/// Something that begins in an orchestra and does not end.
struct OpenBlock
{
    LandmarkKind kind = LandmarkKind::Instrument; ///< or Opcode or BlockBegin
    QString word;                                 ///< that begins it, as "instr", "if" or "while"
    int line = 1;                                 ///< where it begins
    int lastLine = 1; ///< the last line that seems to be meant to be in it
};

/// The innermost that is still open where \a line of \a text begins, of the lines \a orchestra. A
/// block of statements seems to end where the lines are indented no deeper than its first one, an
/// instrument or an opcode with the last code before \a line.
std::optional<OpenBlock> openBlockBefore(const PieceText &text, LineRun orchestra, int line);

} // namespace ardiphon
