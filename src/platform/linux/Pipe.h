#pragma once

#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace ardiphon {

/// A descriptor of the system, closed with the object.
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor &&other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        if (this != &other) {
            close();
            m_number = std::exchange(other.m_number, -1);
        }
        return *this;
    }
    ~Descriptor() { close(); }

    /// -1 for none.
    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }
    void close()
    {
        if (m_number >= 0)
            ::close(std::exchange(m_number, -1));
    }
    /// Makes reading and writing here return at once. The other end of the pipe is not affected.
    void neverWait() const { ::fcntl(m_number, F_SETFL, O_NONBLOCK); }

private:
    int m_number = -1;
};

/// Both ends of a pipe that no program started from here sees.
struct Pipe
{
    Descriptor read;
    Descriptor write;

    bool open()
    {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0)
            return false;
        read = Descriptor(ends[0]);
        write = Descriptor(ends[1]);
        return true;
    }
};

} // namespace ardiphon
