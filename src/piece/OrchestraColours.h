#pragma once

#include "piece/MeaningPaint.h"

namespace ardiphon {

/// Paints a line of an orchestra, as meaningsOf() describes it.
void paintOrchestraLine(QByteArrayView line, PieceState &state, const IsOpcode &isOpcode,
                        MeaningPaint &paint);

} // namespace ardiphon
