#pragma once

#include "piece/LandmarkList.h"
#include "piece/PieceState.h"
#include "piece/ScorePlayers.h"

namespace ardiphon {

/// Reads the line of a score that \a marks is at: adds its landmarks, makes \a state that of the
/// next line, and adds to \a players what it plays.
void readScoreLandmarks(LandmarkList &marks, PieceState &state, ScorePlayers &players);

} // namespace ardiphon
