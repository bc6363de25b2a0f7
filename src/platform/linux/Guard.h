#pragma once

#include "platform/linux/Pipe.h"

#include <QByteArrayList>

#include <optional>

namespace ardiphon {

/// A program as the system starts it.
struct GuardedProgram
{
    QByteArray path;            ///< absolute
    QByteArrayList arguments;   ///< the program's name is the first
    QByteArrayList environment; ///< each "NAME=value"
    QByteArray directory;       ///< where it starts; "" is the current one
    // The descriptors of this process that become its standard streams; -1 for nothing to read,
    // and for a place where all that is printed vanishes.
    int input = -1;
    int output = -1;
    int errors = -1;
};

/// Starts a program and sees to it that nothing of it stays behind: a process between this one and
/// the program waits for the program's end, or for this object to be gone, be it that our own
/// process was killed. Then it kills all that descends from the program, whatever process group or
/// session it went to, and ends when that is dead. It is no child of ours.
class Guard
{
public:
    /// Starts \a program, once for each object. False when the system has no room for that.
    bool start(const GuardedProgram &program);

    /// Has the guard end all that it watches over.
    void release();

    enum class News : char {
        Started = 's', ///< the program runs
        Failed = 'f',  ///< it could not be started; the end follows
        End = 'e'      ///< all is dead
    };
    /// What became readable at newsDescriptor(); nothing when that was a mistake.
    std::optional<News> readNews() const;
    /// -1 before a start.
    int newsDescriptor() const { return m_news.number(); }

private:
    Descriptor m_life; ///< the end of a pipe on which nothing is ever written, open here alone
    Descriptor m_news;
};

} // namespace ardiphon
