#pragma once

#include <QFile>
#include <QString>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/// A FIFO at \a path for a test. Whoever waits for it is let go after a while, so that the test
/// fails instead of standing still.
class Fifo
{
public:
    explicit Fifo(const QString &path) : m_path(QFile::encodeName(path))
    {
        if (::mkfifo(m_path.constData(), 0600) != 0)
            qFatal("cannot make %s", m_path.constData());
        m_watch = std::thread([this] { watch(); });
    }
    ~Fifo() { end(); }

    /// Whether somebody had to be let go. To be asked when all is over.
    bool wasWaitedFor()
    {
        end();
        return m_wasWaitedFor;
    }

private:
    void watch()
    {
        std::unique_lock lock(m_mutex);
        m_ended.wait_for(lock, std::chrono::seconds(3), [this] { return m_over; });
        while (!m_over) {
            // Opens only when there is a reader already.
            const int end = ::open(m_path.constData(), O_WRONLY | O_NONBLOCK);
            m_wasWaitedFor |= end >= 0;
            if (end >= 0)
                ::close(end);
            m_ended.wait_for(lock, std::chrono::milliseconds(20), [this] { return m_over; });
        }
    }

    void end()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_over = true;
        }
        m_ended.notify_all();
        if (m_watch.joinable())
            m_watch.join();
    }

    const QByteArray m_path;
    std::mutex m_mutex;
    std::condition_variable m_ended;
    bool m_over = false;
    bool m_wasWaitedFor = false;
    std::thread m_watch;
};
