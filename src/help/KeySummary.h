#pragma once

#include <QString>

namespace ardiphon {

/// The program's own help: its keys and what the mouse does, as rich text in a table. \a shade is
/// the colour of every other row, as "#rrggbb".
QString keySummary(const QString &shade);

} // namespace ardiphon
