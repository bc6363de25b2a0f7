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
    // The descriptors of this process that become its standard streams; -1 for an empty input, and
    // for an output that is discarded.
    int input = -1;
    int output = -1;
    int errors = -1;
};

/// Starts a program and leaves nothing of it running: a process between this one and the program
/// waits for the program's end, or for the end of this object, also by the death of our own
/// process. Then it kills all descendants of the program, whatever process group or session they
/// joined, and ends when they are dead. It is not a child of this process.
class Guard
{
public:
    /// Starts \a program, once for each object. False when the system has no resources for that.
    bool start(const GuardedProgram &program);

    /// Makes the guard end all that it watches.
    void release();

    enum class News : char {
        Started = 's', ///< the program runs
        Failed = 'f',  ///< it could not be started; the end follows
        End = 'e'      ///< all is dead
    };
    /// Reads from newsDescriptor() when it is readable; nothing when there was nothing to read.
    std::optional<News> readNews() const;
    /// -1 before a start.
    int newsDescriptor() const { return m_news.number(); }

private:
    Descriptor m_life; ///< the end of a pipe on which nothing is ever written, open here alone
    Descriptor m_news;
};

} // namespace ardiphon
