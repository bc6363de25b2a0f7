#pragma once

#include <QIcon>
#include <QString>

namespace ardiphon {

/// The program's icon of that name, drawn in the desktop's text colour and sharp at every size and
/// scale. An unknown name gives an empty icon.
QIcon programIcon(const QString &name);

} // namespace ardiphon
