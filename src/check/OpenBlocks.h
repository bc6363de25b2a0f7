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

/// The end of an instrument or an opcode that has no beginning.
struct LostHeading
{
    LandmarkKind kind = LandmarkKind::InstrumentEnd; ///< or OpcodeEnd
    int endLine = 1;
    int line = 1; ///< the first that seems to belong to it
};

/// The first of the lines \a orchestra of \a text.
std::optional<LostHeading> lostHeading(const PieceText &text, LineRun orchestra);

} // namespace ardiphon
