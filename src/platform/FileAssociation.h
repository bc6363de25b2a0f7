#pragma once

#include <QString>

namespace ardiphon {

// What associates a kind of file with the program, for this user alone and without further rights:
// the kind with its icons, the program that opens it, and that this is the first choice. All of it
// can be undone completely; everything else in these places stays as it is. A step that fails, for
// lack of rights or disk space, is skipped; both routines return what failed first, as a sentence,
// or "" when all was done.

/// Makes \a Executable, in the running program's folder, the opener of the files that end in
/// \a Extension (with its dot). \a ClassKey is the name of the kind of file, which is shown as
/// \a Description. \a Icon is the path of its SVG picture or "": pictures of fixed sizes are beside
/// it as "48x48/<name>.png". \a Arguments is what the opener gets; when empty, only the document.
/// An empty ClassKey does nothing.
[[nodiscard]] QString CreateFileAssociation(const QString &ClassKey, const QString &Extension,
                                            const QString &Description, const QString &Icon,
                                            const QString &Executable,
                                            const QString &Arguments = {});

/// Undoes that. It is no failure when nothing was associated.
[[nodiscard]] QString RemoveFileAssociation(const QString &ClassKey, const QString &Extension);

} // namespace ardiphon
