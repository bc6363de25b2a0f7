#pragma once

#include "platform/ChildEnvironment.h"

#include <QString>

namespace ardiphon {

/// The directory in which a program starts: \a path before its last "/", "" when it has none.
QString ExecutableDirectory(const QString &path);

/// Starts a program that goes on by itself, whatever becomes of this one. \a file is a path, or a
/// bare name that is looked for in the search path; \a parameters are split by splitCommandText; an
/// empty \a directory is the current one. False when it could not be started.
bool StartDetached(const QString &file, const QString &parameters, const QString &directory,
                   const QList<EnvironmentChange> &environment = {});

} // namespace ardiphon
