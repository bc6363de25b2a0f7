#pragma once

#include <QTimer>

#include <functional>

namespace ardiphon {

/// Ticks only while something is to be refreshed, so that an idle program uses no time. Call wake()
/// when there is something to refresh; the refresh function says when nothing is left.
class RefreshTimer : public QTimer
{
    Q_OBJECT

public:
    /// \a refresh does one step, at each tick, and returns whether another one is needed.
    RefreshTimer(std::function<bool()> refresh, QObject *parent);

    /// Starts the ticks; does nothing while it is ticking, so the rhythm stays.
    void wake();
};

} // namespace ardiphon
