#pragma once

#include <QString>

namespace ardiphon {

/// \a title as `setWindowTitle` takes it to show every character: the toolkit uses "[*]" as a mark
/// of its own, and two of them mean the characters themselves.
inline QString titleText(const QString &title)
{
    const QString mark = QStringLiteral("[*]");
    return QString(title).replace(mark, mark + mark);
}

} // namespace ardiphon
