#pragma once

#include "platform/ChildEnvironment.h"

#include <functional>

namespace ardiphon {

/// Returns the value of an environment variable of this process, nothing when it is not set.
using EnvironmentLookup = std::function<std::optional<QString>(const QString &name)>;

/// The value in the real environment of this process.
std::optional<QString> environmentVariable(const QString &name);

/// The changes of the environment for a compiler: its messages are English, as the log is searched
/// for English words, while the rest of the locale stays; and a file that it writes by a relative
/// name goes to \a documentFolder, unless the user has chosen another folder by `SFDIR`.
QList<EnvironmentChange> compilerEnvironment(const QString &documentFolder,
                                             const EnvironmentLookup &lookup = environmentVariable);

/// \a folder; or a link to it below \a rootPath, where its path has a ":" or ";", with which the
/// compiler separates folders, and the link can be made.
QString soundFolder(const QString &folder, const QString &rootPath);

/// The folder to which a file with a relative name goes.
QString outputFolder(const QString &documentFolder,
                     const EnvironmentLookup &lookup = environmentVariable);

} // namespace ardiphon
