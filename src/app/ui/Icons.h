#pragma once

#include <QIcon>
#include <QString>

namespace ardiphon {

/// The icon of that name among the program's own, drawn in the desktop's text colour and crisp at
/// every size and scale. A name that is not among them gives an empty icon.
QIcon programIcon(const QString &name);

} // namespace ardiphon
