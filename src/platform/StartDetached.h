#pragma once

#include "platform/ChildEnvironment.h"

#include <QString>
#include <QStringList>

namespace ardiphon {

/// The directory in which a program starts: \a path before its last "/", "" when it has none.
QString ExecutableDirectory(const QString &path);

/// Starts a program that runs independently of this one. \a file is a path, or a bare name that is
/// looked for in the search path; each of \a arguments is passed on unchanged; an empty
/// \a directory is the current one. False when it could not be started.
[[nodiscard]] bool StartDetached(const QString &file, const QStringList &arguments,
                                 const QString &directory,
                                 const QList<EnvironmentChange> &environment = {});

} // namespace ardiphon
