#include "navigation/SearchRules.h"

#include "app/Numbers.h"
#include "navigation/BlanksAround.h"

#include <limits>

namespace ardiphon {

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

} // namespace ardiphon
