#include "documents/ScreenHalves.h"

namespace ardiphon {

QSize normalSize(const QSize &workArea)
{
    return {workArea.width() * 4 / 5, workArea.height() * 4 / 5};
}

QRect halfOf(const QRect &workArea, ScreenHalf half)
{
    QRect place = workArea;
    switch (half) {
    case ScreenHalf::Upper:
        place.setHeight(workArea.height() / 2);
        break;
    case ScreenHalf::Lower:
        place.setTop(workArea.top() + workArea.height() / 2);
        break;
    case ScreenHalf::Left:
        place.setWidth(workArea.width() / 2);
        break;
    case ScreenHalf::Right:
        place.setLeft(workArea.left() + workArea.width() / 2);
        break;
    }
    return place;
}

} // namespace ardiphon
