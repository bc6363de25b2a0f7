#pragma once

#include "language/TokenColors.h"

#include <QByteArrayView>
#include <QList>

#include <functional>
#include <optional>

namespace ardiphon {

/// A part of a line that is drawn in colours of its own.
struct ColoredRange
{
    int start = 0; ///< in bytes of UTF-8 from the line's start
    int length = 0;
    std::optional<TokenColors> colors; ///< none for a comment: it has the view's own

    friend bool operator==(const ColoredRange &, const ColoredRange &) = default;
};

using ColoredRanges = QList<ColoredRange>;

/// Gives the coloured parts of a line, from left to right, that has these bytes of UTF-8: the first
/// 64 KiB of a longer line. What is in none of them is drawn as the blanks between tokens are.
using LineReader = std::function<ColoredRanges(int line, QByteArrayView text)>;
/// Called when lines from \a first on are about to be drawn. Gives what reads them from there
/// downwards, perhaps not every one, or null where the tokens' colours hold.
using LineColorsCallback = std::function<LineReader(int first)>;

} // namespace ardiphon
