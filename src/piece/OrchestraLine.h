#pragma once

#include "piece/LandmarkList.h"
#include "piece/PieceState.h"

#include <functional>

namespace ardiphon {

/// Whether the language has an opcode of that name.
using IsOpcode = std::function<bool(QByteArrayView name)>;

/// Reads the line of an orchestra that \a marks is at: adds its landmarks, and makes \a state that
/// of the next line. Half a statement is read as far as it goes; no text is refused.
void readOrchestraLine(LandmarkList &marks, PieceState &state, const IsOpcode &isOpcode);

} // namespace ardiphon
