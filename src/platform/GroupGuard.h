#pragma once

namespace ardiphon {

/// Sees to it that a process group does not outlive this program, even when that is killed: a
/// process of the group waits for this object to be gone, and then kills the group. It ends with
/// the group.
class GroupGuard
{
public:
    GroupGuard();
    ~GroupGuard();
    GroupGuard(const GroupGuard &) = delete;
    GroupGuard &operator=(const GroupGuard &) = delete;

    /// To be called in the leader of the group, between fork and exec: only system calls are made.
    void watchFromLeader() const;
    /// To be called here, once the leader is started.
    void leaderIsStarted();

private:
    [[noreturn]] void watch() const;

    int m_readEnd = -1;  ///< of a pipe on which nothing is ever written
    int m_writeEnd = -1; ///< open in this process alone
};

} // namespace ardiphon
