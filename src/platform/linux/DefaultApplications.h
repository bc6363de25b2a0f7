#pragma once

#include <QByteArray>

namespace ardiphon {

// The user's list of default applications (mimeapps.list), as text. Everything else in it stays as
// it is, byte for byte, and withoutDefault undoes what withDefault did.

/// \a list with \a entry (the file name of a desktop entry) as the first default of \a type.
/// Earlier defaults come after it.
QByteArray withDefault(const QByteArray &list, const QByteArray &type, const QByteArray &entry);

/// \a list without \a entry among the defaults of \a type.
QByteArray withoutDefault(const QByteArray &list, const QByteArray &type, const QByteArray &entry);

} // namespace ardiphon
