#include "platform/SoundServer.h"

#include <QByteArray>
#include <QtGlobal>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace ardiphon {

namespace {

/// Where the server listens; "" when that is no socket of this machine.
QByteArray socketPath()
{
    const QByteArray server = qgetenv("PULSE_SERVER");
    if (server.startsWith("unix:"))
        return server.mid(5);
    if (!server.isEmpty())
        return server.startsWith('/') ? server : QByteArray();
    if (qEnvironmentVariableIsSet("PULSE_RUNTIME_PATH"))
        return qgetenv("PULSE_RUNTIME_PATH") + "/native";
    if (qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        return qgetenv("XDG_RUNTIME_DIR") + "/pulse/native";
    return {};
}

} // namespace

bool isSoundServerThere()
{
    const QByteArray path = socketPath();
    sockaddr_un address{};
    if (path.isEmpty() || path.size() >= qsizetype(sizeof address.sun_path))
        return true;
    address.sun_family = AF_UNIX;
    qstrcpy(address.sun_path, path.constData());
    const int probe = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (probe < 0)
        return true;
    const bool answers =
        ::connect(probe, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0;
    ::close(probe);
    return answers;
}

} // namespace ardiphon
