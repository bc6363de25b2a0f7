#pragma once

#include <QtGlobal>

namespace ardiphon {

/// The key that is meant by a key that types \a key, a Qt::Key, in the layout of this keyboard and
/// that the system knows by \a scanCode: what it types where that is a Latin letter or a digit, as
/// on every key that has one; otherwise the letter or digit that stands at its place on a keyboard
/// of the United States. So the digits are found on a French keyboard and the letters on a Russian
/// one.
int keyMeant(int key, quint32 scanCode);

} // namespace ardiphon
