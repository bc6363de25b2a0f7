#pragma once

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

/// For a process that must leave no descendant running: whatever process group or session its
/// descendants join, they become its children when their parents end. Only system calls are made,
/// so all of this may run between a fork and an exec. The process must have one thread.
namespace ardiphon::descendants {

/// Makes this process the parent of its descendants whose parents end. False when the system
/// refuses.
inline bool adoptOrphans() { return ::prctl(PR_SET_CHILD_SUBREAPER, 1) == 0; }

/// Sends SIGKILL to each child. False when the system does not list them.
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
/// another user's or the system blocks it, is left after two seconds in which nothing else ended.
/// To be called after adoptOrphans(); without that it ends the children only.
inline void endAll()
{
    constexpr int pause = 2; // milliseconds
    constexpr int patience = 2000 / pause;
    for (int idle = 0; idle < patience; ++idle) {
        pid_t dead = 0;
        while ((dead = ::waitpid(-1, nullptr, WNOHANG)) > 0)
            idle = 0;
        // When one ends, its children may become ours, so having no child at all is the only sign
        // of the end.
        if ((dead < 0 && errno == ECHILD) || !killChildren())
            return;
        ::poll(nullptr, 0, pause);
    }
}

} // namespace ardiphon::descendants
