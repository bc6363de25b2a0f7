#include "language/GutterNumbers.h"

#include "app/Numbers.h"

#include <QtGlobal>

#include <limits>

namespace ardiphon {

GutterNumbers gutterNumbers(int topLine, int height, int lineHeight)
{
    if (lineHeight < 1)
        return {topLine, topLine - 1};
    const double last = topLine + double(height) / lineHeight - 1;
    return {topLine, roundedWithin(last, topLine - 1, std::numeric_limits<int>::max())};
}

int gutterDigits(int lineCount)
{
    constexpr int atLeast = 6;
    int digits = atLeast;
    for (qint64 next = 1'000'000; next <= qint64(lineCount) + 1; next *= 10)
        ++digits;
    return digits;
}

int gutterLineAt(int topLine, int y, int lineHeight)
{
    return lineHeight < 1 ? topLine : topLine + y / lineHeight;
}

} // namespace ardiphon
