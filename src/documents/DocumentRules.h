#pragma once

#include <QString>

namespace ardiphon {

/// The name of a document without a file.
inline const QString Untitled = QStringLiteral("[Untitled]");

/// The name that the program bears in the titles of its editor windows.
inline const QString WindowTitle = QStringLiteral("ArdiphonPro - Version " ARDIPHON_VERSION);

/// Whether \a name stands for a document that has no file yet.
bool isUntitled(const QString &name);

/// The title of the CSD window for a document of that name.
QString csdTitle(const QString &csdFileName);

/// The title that a document opened from the recent list or imported has until it is saved.
QString programFirstTitle(const QString &csdFileName);

/// \a title with one "*" at its end.
QString markedModified(const QString &title);

} // namespace ardiphon
