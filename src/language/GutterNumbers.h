#pragma once

namespace ardiphon {

/// The line numbers that a gutter shows beside a view.
struct GutterNumbers
{
    int first = 1;
    int last = 1;
};

/// The numbers beside a view whose first visible line is \a topLine. They run to the bottom of the
/// view, however short the text is. \a height and \a lineHeight in pixels.
GutterNumbers gutterNumbers(int topLine, int height, int lineHeight);

/// How many digits a gutter has room for beside a text of so many lines: six, and more where a
/// number needs them. The number after the last line may be visible too.
int gutterDigits(int lineCount);

/// The line at \a y, in pixels from the gutter's top.
int gutterLineAt(int topLine, int y, int lineHeight);

} // namespace ardiphon
