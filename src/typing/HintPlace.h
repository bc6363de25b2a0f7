#pragma once

#include <QRect>

namespace ardiphon {

/// Where a hint of \a size stands for a caret in \a line, the rectangle of its line from the place
/// on that the hint is about: above the line, else below it, on \a screen as a whole as far as it
/// fits, and not over the line nor over \a list, the list of suggestions, where there is one. Empty
/// where there is no such place. All in the screen's pixels.
QRect hintPlace(QRect line, QSize size, QRect screen, QRect list);

} // namespace ardiphon
