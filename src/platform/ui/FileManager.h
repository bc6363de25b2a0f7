#pragma once

#include <QString>

#include <functional>

class QObject;

namespace ardiphon {

/// Asks the desktop's file manager to show the properties of the file at \a path, which is
/// absolute, without waiting for it. \a refused is called, now or later, where no file manager does
/// it; not after \a asker has been destroyed.
void askForProperties(QObject *asker, const QString &path, const std::function<void()> &refused);

} // namespace ardiphon
