#pragma once

#include <QString>

namespace ardiphon {

/// \a text without the blanks at its ends; a tab, a line end and a non-breaking blank do not count.
inline QStringView withoutBlanksAround(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.mid(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

/// \a text without the blanks at its end.
inline QString withoutTrailingBlanks(QString text)
{
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

} // namespace ardiphon
