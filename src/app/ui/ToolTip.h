#pragma once

#include <QString>

namespace ardiphon {

/// The tool tip that shows \a text character by character, whatever looks like markup in it, and
/// breaks it into lines when it is long.
QString plainToolTip(const QString &text);

} // namespace ardiphon
