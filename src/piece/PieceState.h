#pragma once

#include "piece/CodeState.h"

namespace ardiphon {

/// The part of a piece that a line belongs to.
enum class PieceSection : quint8 { Outside, Options, Orchestra, Score, File, Licence, Other };

/// What an orchestra's line is in.
enum class PieceBody : quint8 { None, Instrument, Opcode };

/// How the statement of the line above goes on.
enum class Continuation : quint8 { None, Statement, InstrumentNames };

/// All that the lines above say of a line.
struct PieceState
{
    CodeState code = CodeState::Code;
    PieceSection section = PieceSection::Outside;
    PieceBody body = PieceBody::None;
    Continuation continuation = Continuation::None;

    friend bool operator==(const PieceState &, const PieceState &) = default;
};

} // namespace ardiphon
