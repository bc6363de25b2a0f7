#pragma once

#include <QTimer>

#include <functional>

namespace ardiphon {

/// Ticks only while something is to be refreshed, so that a program at rest is not woken for
/// nothing. Whoever has something to refresh wakes it; the refresh tells when nothing is left.
class RefreshTimer : public QTimer
{
    Q_OBJECT

public:
    /// \a refresh: one step; whether another one is needed. Each tick makes one.
    RefreshTimer(std::function<bool()> refresh, QObject *parent);

    /// Ticks from now on; nothing while it does already, so the rhythm stays.
    void wake();
};

} // namespace ardiphon
