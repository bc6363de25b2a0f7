#pragma once

#include <QString>

namespace ardiphon {

/// The program's own help: the use of its keys and of the mouse, as a table in rich text. \a shade
/// is the colour of every other row, as "#rrggbb".
QString keySummary(const QString &shade);

} // namespace ardiphon
