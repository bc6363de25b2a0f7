#pragma once

#include "piece/PieceState.h"

#include <QByteArrayView>

#include <optional>

namespace ardiphon {

/// A tag of a unified file that is at the beginning of a line.
struct PieceTag
{
    PieceSection section; ///< that it begins, or Outside
    bool ends = false;
    int start = 0; ///< of its name, in bytes, without < and /
    int length = 0;
};

/// None where the line begins with no tag of the unified file. Capitals count, as for the compiler.
std::optional<PieceTag> pieceTag(QByteArrayView line);

} // namespace ardiphon
