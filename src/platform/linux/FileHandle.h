#pragma once

#include <QByteArray>

#include <tuple>

#include <sys/stat.h>

namespace ardiphon {

/// An open file of the system, closed with the object. Every call is repeated after an
/// interruption; one that fails leaves the reason in errno.
class FileHandle
{
public:
    /// As open(2), and closed in programs that are started; not valid when that fails.
    [[nodiscard]] static FileHandle open(const QByteArray &path, int flags, mode_t mode = 0);
    /// A new file for this user alone, under an unused name that begins with \a prefix; \a path
    /// becomes that name.
    [[nodiscard]] static FileHandle createBeside(const QByteArray &prefix, QByteArray &path);

    FileHandle() = default;
    FileHandle(FileHandle &&other) noexcept : m_descriptor(other.m_descriptor)
    {
        other.m_descriptor = -1;
    }
    FileHandle &operator=(FileHandle &&) = delete;
    ~FileHandle() { std::ignore = close(); } // a writer has called close() and checked it

    bool isValid() const { return m_descriptor >= 0; }
    int descriptor() const { return m_descriptor; }
    /// Hands the open file over to the caller, who closes it.
    [[nodiscard]] int release();
    [[nodiscard]] bool status(struct stat &status) const;

    /// Reads to the end, but no more than \a limit bytes; false when there is more or reading
    /// fails.
    [[nodiscard]] bool readAll(QByteArray &bytes, qsizetype limit) const;
    /// Writes all \a bytes at the current place; false when any of them could not be written.
    [[nodiscard]] bool writeAll(const QByteArray &bytes) const;
    /// Waits until what was written is on the disk.
    [[nodiscard]] bool flush() const;
    /// False when the system reports only now that a write failed.
    [[nodiscard]] bool close();

private:
    explicit FileHandle(int descriptor) : m_descriptor(descriptor) {}
    int m_descriptor = -1;
};

} // namespace ardiphon
