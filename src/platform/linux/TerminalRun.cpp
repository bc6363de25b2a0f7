#include "platform/TerminalRun.h"

#include "platform/linux/ConsoleReport.h"

#include <QSocketNotifier>
#include <QUuid>

#include <utility>

namespace ardiphon {

TerminalRun::TerminalRun(QObject *parent) : QObject(parent)
{
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &TerminalRun::giveUp);
}

TerminalRun::~TerminalRun() { closeSocket(); }

bool TerminalRun::start(const ProgramCommand &command, const QString &programFolder,
                        std::chrono::milliseconds limit)
{
    if (!listen())
        return false;
    if (!startConsole(command, programFolder, m_name)) {
        closeSocket();
        return false;
    }
    m_patience.start(limit);
    return true;
}

bool TerminalRun::listen()
{
    m_name = QStringLiteral("ardiphon-") + QUuid::createUuid().toString(QUuid::Id128);
    sockaddr_un address{};
    const socklen_t size = report::address(m_name.toStdString(), address);
    m_socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (::bind(m_socket, reinterpret_cast<sockaddr *>(&address), size) != 0 ||
        ::listen(m_socket, 1) != 0) {
        closeSocket();
        return false;
    }
    m_news = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    connect(m_news.get(), &QSocketNotifier::activated, this, &TerminalRun::accept);
    return true;
}

/// Takes a console that has connected. False when there is none.
bool TerminalRun::accept()
{
    const int connection = ::accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (connection < 0)
        return false;
    if (!report::isOurs(connection)) {
        ::close(connection);
        return false;
    }
    m_patience.stop();
    m_news->setEnabled(false);
    m_news.release()->deleteLater(); // we are in its signal
    ::close(std::exchange(m_socket, connection));
    m_news = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    connect(m_news.get(), &QSocketNotifier::activated, this, &TerminalRun::readNews);
    return true;
}

/// A connection that breaks means that the terminal was closed, and the program ended with it.
void TerminalRun::readNews()
{
    char news = 0;
    const ssize_t size = ::read(m_socket, &news, 1);
    if (size < 0 && errno == EAGAIN)
        return;
    m_news->setEnabled(false);
    if (size == 1 && report::News(news) == report::News::Failed)
        emit failed();
    else
        emit ended();
}

void TerminalRun::stop()
{
    if (m_patience.isActive() && !accept()) {
        giveUp(); // a console that connects now finds nobody
        return;
    }
    ::shutdown(m_socket, SHUT_WR);
}

void TerminalRun::giveUp()
{
    m_patience.stop();
    closeSocket();
    emit windowNotOpened();
}

void TerminalRun::closeSocket()
{
    m_news.reset();
    if (m_socket >= 0)
        ::close(std::exchange(m_socket, -1));
}

} // namespace ardiphon
