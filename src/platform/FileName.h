#pragma once

#include <QByteArray>
#include <QString>

namespace ardiphon {

// The program keeps names as texts. A name whose bytes are not UTF-8 does not come back from a
// text: it would name another file, or none.

/// Whether the file of that name, given in the system's own bytes, can be reached by a text; a
/// relative one also needs a current directory that can.
bool isNamable(const QByteArray &name);
/// Whether \a path is a text that was made of a name that is not UTF-8.
bool isBrokenName(const QString &path);
/// One sentence for the user who asked for such a file.
QString brokenNameText(const QString &path);

} // namespace ardiphon
