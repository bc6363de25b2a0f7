#pragma once

#include <QString>

#include <sys/types.h>

/// The stand-in compiler as tests see it: where it is, and which processes its runs left behind.
namespace StandInCompiler {

/// The executable, beside the test programs.
QString path();

/// The processes of a run of the stand-in on \a piece; 0 for one that there isn't (yet).
struct Pids
{
    pid_t leader = 0;
    pid_t child = 0;
};
Pids pids(const QString &piece);

/// Whether the process runs; one that is dead and only waits to be collected doesn't.
bool isAlive(pid_t pid);

} // namespace StandInCompiler
