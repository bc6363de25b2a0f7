#pragma once

#include "piece/PieceText.h"
#include "typing/Completion.h"

#include <QList>

namespace ardiphon {

/// Counts how often each of \a names stands in \a text, in the thousand lines above and below
/// \a line that are the nearest.
void countUses(const PieceText &text, int line, QList<Completion> &names);

} // namespace ardiphon
