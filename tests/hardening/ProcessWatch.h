#pragma once

#include <QStringList>

/// What this process holds of the system.
namespace ProcessWatch {

int openHandles();
/// Its children that run, or wait to be collected, by name.
QStringList children();
/// The bytes that are allocated and not freed.
qint64 liveBytes();

/// Ends the process with a message when no new call comes for that many seconds; 0 ends the watch.
void expectLifeWithin(unsigned seconds);

} // namespace ProcessWatch
