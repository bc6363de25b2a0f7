#pragma once

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

/// For a process that sees to it that nothing of what it has started stays behind: whatever process
/// group or session its descendants go to, they become its children when they lose their parents.
/// Only system calls are made, so all of this may run between a fork and an exec. The process has
/// one thread.
namespace ardiphon::descendants {

/// Has this process become the parent of its descendants that lose theirs.
inline bool adoptOrphans() { return ::prctl(PR_SET_CHILD_SUBREAPER, 1) == 0; }

/// Sends SIGKILL to each child. False when the system does not tell which there are.
inline bool killChildren()
{
    const int file = ::open("/proc/thread-self/children", O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    char block[512];
    pid_t number = 0;
    for (ssize_t size; (size = ::read(file, block, sizeof block)) > 0;) {
        for (ssize_t i = 0; i < size; ++i) {
            if (block[i] >= '0' && block[i] <= '9') {
                number = number * 10 + (block[i] - '0');
            } else if (number > 0) {
                ::kill(number, SIGKILL);
                number = 0;
            }
        }
    }
    ::close(file);
    return true;
}

/// Kills every descendant and returns when all are dead. One that cannot be killed, as it is
/// another user's or the system holds it, is left after two seconds in which nothing else died.
/// After adoptOrphans(), or it ends the children alone.
inline void endAll()
{
    constexpr int pause = 2; // milliseconds
    constexpr int patience = 2000 / pause;
    for (int idle = 0; idle < patience; ++idle) {
        pid_t dead = 0;
        while ((dead = ::waitpid(-1, nullptr, WNOHANG)) > 0)
            idle = 0;
        // The death of one may have brought in its children, so this is the only sign of the end.
        if ((dead < 0 && errno == ECHILD) || !killChildren())
            return;
        ::poll(nullptr, 0, pause);
    }
}

} // namespace ardiphon::descendants
