#pragma once

#include <QString>

namespace ardiphon {

/// The program's own help: its keys and what the mouse does, as rich text in a table.
QString keySummary();

} // namespace ardiphon
