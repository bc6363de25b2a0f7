#pragma once

#include "typing/CompletionList.h"

namespace ardiphon {

/// All suggestions for \a place that have its letters, in no order. \a reason and \a behind as for
/// CompletionList.
QList<Completion> candidatesAt(const CompletionSources &sources, const CompletionPlace &place,
                               CompletionReason reason, const QString &behind);

} // namespace ardiphon
