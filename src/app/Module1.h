#pragma once

#include <QStringView>

namespace ardiphon {

/// Whether \a text may be a number in an analysis field: only "-", ".", "/" and digits, and
/// at most one point. The order is not checked, and the empty text counts as a number.
bool IsNumericText(QStringView text);

} // namespace ardiphon
