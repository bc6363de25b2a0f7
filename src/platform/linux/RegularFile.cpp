#include "platform/RegularFile.h"

#include "platform/linux/RegularFileHandle.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>

namespace ardiphon {

namespace {

FileFailure failureOf(mode_t mode)
{
    return {S_ISDIR(mode) ? FileFailure::Kind::Folder : FileFailure::Kind::NoRegularFile};
}

} // namespace

Result<FileHandle> openRegularFile(const QByteArray &path)
{
    if (path.contains('\0')) // the system would take the beginning for the name
        return FileFailure::ofSystem(EINVAL);
    // It is checked before it is opened, as opening a device may have effects, and afterwards, as
    // something else may have taken its place.
    struct stat status = {};
    if (::stat(path.constData(), &status) != 0)
        return FileFailure::ofSystem(errno);
    if (!S_ISREG(status.st_mode))
        return failureOf(status.st_mode);
    FileHandle file = FileHandle::open(path, O_RDONLY | O_NONBLOCK);
    if (!file.isValid() || !file.status(status))
        return FileFailure::ofSystem(errno);
    if (!S_ISREG(status.st_mode))
        return failureOf(status.st_mode);
    return file;
}

Result<> openRegularFile(QFile &file)
{
    Result<FileHandle> handle = openRegularFile(QFile::encodeName(file.fileName()));
    if (!handle)
        return handle.failure();
    if (!file.open(handle->release(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return FileFailure::ofSystem(EIO);
    return {};
}

Result<QByteArray> readRegularFile(const QString &path, qint64 limit)
{
    QFile file(path);
    if (const auto opened = openRegularFile(file); !opened)
        return opened.failure();
    errno = 0;
    const QByteArray bytes = file.read(limit);
    if (file.error() != QFileDevice::NoError)
        return FileFailure::ofSystem(errno ? errno : EIO);
    return bytes;
}

} // namespace ardiphon
