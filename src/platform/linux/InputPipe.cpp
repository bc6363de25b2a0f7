#include "platform/linux/InputPipe.h"

#include <QSocketNotifier>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <ctime>

namespace ardiphon {

namespace {

/// write(2), without the signal that a pipe without a reader sends, which would end this process.
/// How the rest of the process handles that signal is left as it is.
ssize_t writeQuietly(int pipe, const char *bytes, qsizetype size)
{
    sigset_t brokenPipe;
    sigset_t before;
    sigset_t pending;
    ::sigemptyset(&brokenPipe);
    ::sigaddset(&brokenPipe, SIGPIPE);
    ::sigpending(&pending);
    ::pthread_sigmask(SIG_BLOCK, &brokenPipe, &before);
    const ssize_t written = ::write(pipe, bytes, size_t(size));
    const int error = errno;
    if (written < 0 && error == EPIPE && !::sigismember(&pending, SIGPIPE)) {
        const timespec atOnce{};
        while (::sigtimedwait(&brokenPipe, nullptr, &atOnce) < 0 && errno == EINTR) {
        }
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    errno = error;
    return written;
}

} // namespace

InputPipe::InputPipe() = default;

InputPipe::~InputPipe() = default;

void InputPipe::open(Descriptor end)
{
    m_end = std::move(end);
    m_end.neverWait();
    m_room = std::make_unique<QSocketNotifier>(m_end.number(), QSocketNotifier::Write);
    m_room->setEnabled(false);
    connect(m_room.get(), &QSocketNotifier::activated, this, &InputPipe::feed);
}

bool InputPipe::write(const QByteArray &bytes)
{
    if (!m_end.isOpen() || m_closing)
        return false;
    if (!bytes.isEmpty()) {
        m_blocks.push_back(bytes);
        m_unwritten += bytes.size();
        m_room->setEnabled(true);
    }
    return true;
}

void InputPipe::closeWhenWritten()
{
    m_closing = true;
    if (m_blocks.empty())
        closeNow();
}

void InputPipe::closeNow()
{
    if (m_room)
        m_room->setEnabled(false);
    m_end.close();
    m_blocks.clear();
    m_taken = 0;
    m_unwritten = 0;
}

void InputPipe::feed()
{
    constexpr qsizetype blockSize = 65536; // what a pipe can hold
    if (m_blocks.empty())
        return;
    const QByteArray &block = m_blocks.front();
    const ssize_t size = writeQuietly(m_end.number(), block.constData() + m_taken,
                                      std::min(block.size() - m_taken, blockSize));
    if (size < 0) {
        if (errno != EAGAIN && errno != EINTR)
            closeNow();
        return;
    }
    m_taken += size;
    m_unwritten -= size;
    if (m_taken == block.size()) {
        m_blocks.pop_front();
        m_taken = 0;
    }
    if (!m_blocks.empty())
        return;
    m_room->setEnabled(false);
    if (m_closing)
        closeNow();
    emit allWritten();
}

} // namespace ardiphon
