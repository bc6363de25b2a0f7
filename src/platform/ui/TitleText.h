#pragma once

#include <QString>

namespace ardiphon {

/// \a title as `setWindowTitle` takes it to show every character: the toolkit keeps "[*]" for a
/// mark of its own, and takes two of them for the characters themselves.
inline QString titleText(const QString &title)
{
    const QString mark = QStringLiteral("[*]");
    return QString(title).replace(mark, mark + mark);
}

} // namespace ardiphon
