#pragma once

namespace ardiphon {

/// The variable in which a program that opens a file in a window of its own tells that window which
/// line to show. It is for nobody else, and no child of that window gets it.
inline constexpr char OpenedLineVariable[] = "ARDIPHON_OPENED_LINE";

/// The line that this program is to show first, 0 for none; and takes that from the environment.
int takeOpenedLine();

} // namespace ardiphon
