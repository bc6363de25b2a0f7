#pragma once

#include "piece/LandmarkList.h"
#include "piece/PieceState.h"

namespace ardiphon {

/// Reads the line of a score that \a marks is at: adds its landmarks, makes \a state that of the
/// next line, and sets in \a plays the bits of the instruments that it plays.
void readScoreLandmarks(LandmarkList &marks, PieceState &state, quint64 &plays);

/// The bit that stands for the instrument of that name or number; others may have the same.
quint64 instrumentBit(QByteArrayView name);

} // namespace ardiphon
