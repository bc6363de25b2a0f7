#include "app/Module1.h"

#include <algorithm>

namespace ardiphon {

bool IsNumericText(QStringView text)
{
    const bool allowed =
        std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'-' && c <= u'9'; });
    return allowed && text.count(u'.') <= 1;
}

} // namespace ardiphon
