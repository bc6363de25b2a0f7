#pragma once

#include "platform/ChildEnvironment.h"

#include <functional>

namespace ardiphon {

/// Gives the value of an environment variable of this process, nothing when it is not set.
using EnvironmentLookup = std::function<std::optional<QString>(const QString &name)>;

/// The real one.
std::optional<QString> environmentVariable(const QString &name);

/// What a compiler sees otherwise than this process: its messages are English, which is what the
/// log is searched for, while all else of the locale stays; and a file that it writes by a relative
/// name lands in \a documentFolder, unless the user has chosen another folder by `SFDIR`.
QList<EnvironmentChange> compilerEnvironment(const QString &documentFolder,
                                             const EnvironmentLookup &lookup = environmentVariable);

/// \a folder, or where its path holds a ":" or ";", with which the compiler separates folders, a
/// link to it below \a rootPath.
QString soundFolder(const QString &folder, const QString &rootPath);

/// The folder where a file with a relative name lands.
QString outputFolder(const QString &documentFolder,
                     const EnvironmentLookup &lookup = environmentVariable);

} // namespace ardiphon
