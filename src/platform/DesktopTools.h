#pragma once

namespace ardiphon {

/// Opens a terminal at "/": the first of the usual ones that starts. False when none does.
[[nodiscard]] bool StartCommandPrompt();

/// Opens the desktop's calculator in the same way.
[[nodiscard]] bool StartCalculator();

} // namespace ardiphon
