#pragma once

#include <QString>

namespace ardiphon {

/// A tool tip that shows \a text literally, even if it looks like markup, and in several lines when
/// it is long.
QString plainToolTip(const QString &text);

} // namespace ardiphon
