#include "navigation/SearchRules.h"

#include "app/Blanks.h"
#include "app/Numbers.h"

#include <algorithm>
#include <limits>

namespace ardiphon {

namespace {

constexpr int RoomAround = 16; // pixels, so that the lines around a match are visible too

/// The place of \a window moved into the screen; one that is too large begins at its left or top.
QPoint placeWithin(const QRect &window, const QRect &screen)
{
    const int right = screen.x() + screen.width() - window.width();
    const int bottom = screen.y() + screen.height() - window.height();
    return {std::max(screen.x(), std::min(window.x(), right)),
            std::max(screen.y(), std::min(window.y(), bottom))};
}

} // namespace

QString captionForCaller(const QString &title, const QString &caller)
{
    if (caller == OrchestraCaller)
        return title + QStringLiteral(" (Orchestra)");
    if (caller == ScoreCaller)
        return title + QStringLiteral(" (Score)");
    return title;
}

QString fieldTextFromSelection(const QString &selection)
{
    return withoutBlanksAround(selection).left(LongestFieldText).toString();
}

std::optional<int> lineNumberFrom(const QString &text)
{
    if (!isNumber(text))
        return std::nullopt;
    using Limits = std::numeric_limits<int>;
    return roundedWithin(leadingNumber(text), Limits::min(), Limits::max());
}

QPoint placeBesideMatch(const QRect &window, const QRect &match, const QRect &screen)
{
    if (!window.intersects(match))
        return window.topLeft();
    const QRect kept = match.adjusted(-RoomAround, -RoomAround, RoomAround, RoomAround);
    const QPoint above(window.x(), kept.top() - window.height());
    const QPoint below(window.x(), kept.bottom() + 1);
    const QPoint before(kept.left() - window.width(), window.y());
    const QPoint behind(kept.right() + 1, window.y());
    std::optional<QPoint> nearest;
    const auto distance = [&](QPoint to) { return (to - window.topLeft()).manhattanLength(); };
    for (const QPoint place : {below, above, before, behind}) {
        const QPoint inside = placeWithin(QRect(place, window.size()), screen);
        const bool free = !QRect(inside, window.size()).intersects(match);
        if (free && (!nearest || distance(inside) < distance(*nearest)))
            nearest = inside;
    }
    return nearest.value_or(window.topLeft());
}

} // namespace ardiphon
