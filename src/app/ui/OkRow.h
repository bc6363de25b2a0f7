#pragma once

class QDialog;
class QHBoxLayout;

namespace ardiphon {

/// Makes the last row of a window that only has to be closed: at its right `Command1`, "&OK", which
/// Enter presses. The layout has no parent yet.
QHBoxLayout *newOkRow(QDialog &window);

} // namespace ardiphon
