#pragma once

#include "language/Tokenizer.h"
#include "piece/PieceState.h"

namespace ardiphon {

// Lines of a unified file that are neither orchestra nor score are read by the rules of the
// editors' tokens; the only thing that such a line leaves open is a block comment.

inline bool isPlain(PieceSection section)
{
    return section == PieceSection::Outside || section == PieceSection::Options;
}

inline LineState plainLineState(CodeState state)
{
    return state == CodeState::BlockComment ? LineState::BlockComment : LineState::Text;
}

inline CodeState codeState(LineState state)
{
    return state == LineState::BlockComment ? CodeState::BlockComment : CodeState::Code;
}

/// What a plain line leaves open that begins in \a state.
inline CodeState behindPlainLine(QByteArrayView line, CodeState state)
{
    return codeState(stateBehind(line, plainLineState(state)));
}

} // namespace ardiphon
