#include "platform/linux/FileHandle.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace ardiphon {

namespace {

template <typename Call>
auto retried(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

} // namespace

FileHandle FileHandle::open(const QByteArray &path, int flags, mode_t mode)
{
    return FileHandle(
        retried([&] { return ::open(path.constData(), flags | O_CLOEXEC | O_NOCTTY, mode); }));
}

FileHandle FileHandle::createBeside(const QByteArray &prefix, QByteArray &path)
{
    path = prefix + "XXXXXX";
    return FileHandle(::mkostemp(path.data(), O_CLOEXEC));
}

int FileHandle::release() { return std::exchange(m_descriptor, -1); }

bool FileHandle::status(struct stat &status) const { return ::fstat(m_descriptor, &status) == 0; }

bool FileHandle::readAll(QByteArray &bytes, qsizetype limit) const
{
    struct stat before = {};
    bytes.clear();
    // One byte more than the file's size, so that its end is found without growing the buffer.
    if (status(before))
        bytes.resize(std::min<qsizetype>(before.st_size, limit) + 1);
    qsizetype size = 0;
    while (true) {
        if (size == bytes.size())
            bytes.resize(std::min(std::max<qsizetype>(size * 2, 4096), limit + 1));
        const ssize_t count = retried(
            [&] { return ::read(m_descriptor, bytes.data() + size, size_t(bytes.size() - size)); });
        if (count < 0)
            return false;
        size += count;
        if (size > limit) {
            errno = EFBIG;
            return false;
        }
        if (count == 0)
            break;
    }
    bytes.truncate(size);
    return true;
}

bool FileHandle::writeAll(const QByteArray &bytes) const
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = retried([&] {
            return ::write(m_descriptor, bytes.constData() + written,
                           size_t(bytes.size() - written));
        });
        if (count == 0)
            errno = EIO;
        if (count <= 0)
            return false;
        written += count;
    }
    return true;
}

bool FileHandle::flush() const
{
    return retried([&] { return ::fsync(m_descriptor); }) == 0;
}

bool FileHandle::close()
{
    const int descriptor = std::exchange(m_descriptor, -1);
    return descriptor < 0 || ::close(descriptor) == 0;
}

} // namespace ardiphon
