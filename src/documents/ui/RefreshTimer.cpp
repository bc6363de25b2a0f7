#include "documents/ui/RefreshTimer.h"

namespace ardiphon {

RefreshTimer::RefreshTimer(std::function<bool()> refresh, QObject *parent) : QTimer(parent)
{
    connect(this, &QTimer::timeout, this, [this, refresh = std::move(refresh)] {
        if (!refresh())
            stop();
    });
}

void RefreshTimer::wake()
{
    if (!isActive())
        start();
}

} // namespace ardiphon
