#pragma once

#include <QTest>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

/// Fails the test when what comes before the end of its life has not ended by then. It
/// is for rules which, when broken, have a call wait for ever, or read a file without an end: such
/// a test cannot go on, so the program ends there. The limit is far beyond what the slowest machine
/// needs.
class TimeLimit
{
public:
    explicit TimeLimit(std::chrono::seconds limit = std::chrono::seconds(30))
        : m_watch([this, limit, test = QByteArray(QTest::currentTestFunction())] {
              std::unique_lock lock(m_mutex);
              if (m_news.wait_for(lock, limit, [this] { return m_isOver; }))
                  return;
              std::printf("FAIL!  : %s() does not come to an end\n", test.constData());
              std::fflush(stdout);
              std::_Exit(1);
          })
    {
    }
    ~TimeLimit()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isOver = true;
        }
        m_news.notify_one();
        m_watch.join();
    }
    TimeLimit(const TimeLimit &) = delete;
    TimeLimit &operator=(const TimeLimit &) = delete;

private:
    std::mutex m_mutex;
    std::condition_variable m_news;
    bool m_isOver = false;
    std::thread m_watch;
};
