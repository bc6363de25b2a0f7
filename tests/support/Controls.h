#pragma once

#include <QObject>

/// The control of that name below \a window. A test that names none cannot go on, so it ends there.
template <typename Control>
Control *controlIn(const QObject &window, const QString &name)
{
    auto *const found = window.findChild<Control *>(name);
    if (!found)
        qFatal("no control %s", qPrintable(name));
    return found;
}
