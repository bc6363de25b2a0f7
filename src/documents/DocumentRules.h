#pragma once

#include "workbench/Document.h"

#include <QString>

namespace ardiphon {

/// The name of the program in the titles of its editor windows.
inline const QString WindowTitle = QStringLiteral("ArdiphonPro - Version " ARDIPHON_VERSION);

/// The title of the CSD window for a document of that name.
QString csdTitle(const QString &csdFileName);

/// The title that a document opened from the recent list or imported has until it is saved.
QString programFirstTitle(const QString &csdFileName);

/// \a title with one "*" at its end.
QString markedModified(const QString &title);

} // namespace ardiphon
