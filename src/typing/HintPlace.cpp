#include "typing/HintPlace.h"

#include <algorithm>

namespace ardiphon {

QRect hintPlace(QRect line, QSize size, QRect screen, QRect list)
{
    constexpr int Gap = 2;
    size = size.boundedTo(screen.size());
    const int x = std::clamp(line.left(), screen.left(), screen.right() + 1 - size.width());
    const int belowLine = line.bottom() + 1 + Gap;
    const int belowList = list.isEmpty() ? belowLine : list.bottom() + 1 + Gap;
    const int aboveList = list.isEmpty() ? line.top() : list.top() - Gap - size.height();
    for (const int y : {line.top() - Gap - size.height(), belowLine, belowList, aboveList}) {
        const QRect place(QPoint(x, y), size);
        if (screen.contains(place) && !place.intersects(list) &&
            (place.bottom() < line.top() || place.top() > line.bottom()))
            return place;
    }
    return QRect();
}

} // namespace ardiphon
