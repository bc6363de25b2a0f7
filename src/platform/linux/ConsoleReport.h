#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

/// How a program in a terminal and the one that waits for it are connected: the terminal may be
/// opened by a process that knows neither, so they use a socket with a name that is not a file.
namespace ardiphon::report {

/// What the terminal's side sends, once. The other side sends nothing, but closes its connection
/// when the program is to end.
enum class News : char {
    Ended = 'e', ///< the program and all that it has started
    Failed = 'f' ///< it could not be started
};

/// Fills \a address for \a name; returns its size, 0 when the name is empty or too long.
inline socklen_t address(std::string_view name, sockaddr_un &address)
{
    address.sun_family = AF_UNIX;
    if (name.empty() || name.size() >= sizeof address.sun_path)
        return 0;
    std::memcpy(address.sun_path + 1, name.data(), name.size()); // the leading NUL: not a file
    return static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
}

/// Whether the other end belongs to this user; every user can see the name.
inline bool isOurs(int connection)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::geteuid();
}

} // namespace ardiphon::report
