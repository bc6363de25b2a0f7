#pragma once

#include <QString>

class QWidget;

namespace ardiphon {

/// Shows the properties of the file at \a path, without waiting: in the desktop's file manager, or
/// where there is none in a small dialog over \a owner. Does nothing for a file that does not
/// exist.
void ShowFileProperties(QWidget *owner, const QString &path);

} // namespace ardiphon
