#pragma once

#include "piece/MeaningPaint.h"

namespace ardiphon {

/// Paints a line of a score, as meaningsOf() describes it. \a directive is what a word with a # is.
void paintScoreLine(QByteArrayView line, CodeState &state, Meaning directive, MeaningPaint &paint);

} // namespace ardiphon
