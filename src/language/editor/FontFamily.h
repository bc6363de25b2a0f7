#pragma once

#include <QString>

namespace ardiphon {

/// The family to draw with where \a family is asked for: that family where it is installed, else
/// the system's fixed one, as a missing family would be replaced by a proportional one.
QString familyToDraw(const QString &family);

} // namespace ardiphon
