#pragma once

#include <QtGlobal>

namespace ardiphon {

/// The key that the user means with a key that types \a key (a Qt::Key) and has the system's
/// \a scanCode: \a key itself where it is a Latin letter, a digit or not a character; otherwise the
/// letter or digit at its place on a keyboard of the United States. So the digits are found on a
/// French keyboard and the letters on a Russian one.
int keyMeant(int key, quint32 scanCode);

} // namespace ardiphon
