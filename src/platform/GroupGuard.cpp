#include "platform/GroupGuard.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace ardiphon {

namespace {

void closeEnd(int &end)
{
    if (end >= 0)
        ::close(std::exchange(end, -1));
}

} // namespace

GroupGuard::GroupGuard()
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return;
    m_readEnd = ends[0];
    m_writeEnd = ends[1];
}

GroupGuard::~GroupGuard()
{
    closeEnd(m_readEnd);
    closeEnd(m_writeEnd);
}

/// The watching process is nobody's child, so the leader does not find it when it waits for its
/// own.
void GroupGuard::watchFromLeader() const
{
    if (m_readEnd < 0 || ::getpgrp() != ::getpid())
        return;
    const pid_t parent = ::_Fork();
    if (parent == 0) {
        if (::_Fork() == 0)
            watch();
        ::_exit(0);
    }
    if (parent > 0)
        ::waitpid(parent, nullptr, 0);
}

void GroupGuard::leaderIsStarted() { closeEnd(m_readEnd); }

void GroupGuard::watch() const
{
    sigset_t all;
    ::sigfillset(&all);
    ::sigprocmask(SIG_BLOCK, &all, nullptr); // what is sent to the group is not meant for it
    ::dup2(m_readEnd, STDIN_FILENO);
    ::close_range(STDIN_FILENO + 1, UINT_MAX, 0); // the other end is among them
    char none;
    while (::read(STDIN_FILENO, &none, 1) < 0 && errno == EINTR) {
    }
    ::kill(0, SIGKILL);
    ::_exit(0);
}

} // namespace ardiphon
