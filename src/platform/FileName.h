#pragma once

#include <QByteArray>
#include <QString>

namespace ardiphon {

// The program keeps names as texts. A name whose bytes are not UTF-8 cannot be got back from a
// text, which would name another file or none.

/// Whether the file of that \a name, given in the system's own bytes, can be reached by a text; for
/// a relative name the current directory must be such a one too.
bool isNamable(const QByteArray &name);
/// Whether \a path is a text that was made from a name that is not UTF-8.
bool isBrokenName(const QString &path);
/// One sentence for the user who asked for such a file.
QString brokenNameText(const QString &path);

} // namespace ardiphon
