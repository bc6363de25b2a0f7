#pragma once

#include <QByteArray>

namespace ardiphon {

// The user's list of default applications (mimeapps.list), as text. What else is in it is left
// alone to the byte, and what withDefault did, withoutDefault undoes.

/// \a list with \a entry (the file name of a desktop entry) as the first default of \a type. A
/// default that was there comes after it.
QByteArray withDefault(const QByteArray &list, const QByteArray &type, const QByteArray &entry);

/// \a list without \a entry among the defaults of \a type.
QByteArray withoutDefault(const QByteArray &list, const QByteArray &type, const QByteArray &entry);

} // namespace ardiphon
