#include "platform/RegularFile.h"

#include "platform/FileFailure.h"

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

FileHandle openRegularFile(const QByteArray &path, FileFailure &why)
{
    if (path.contains('\0')) { // the system would take the beginning for the name
        why = FileFailure::ofSystem(EINVAL);
        return {};
    }
    // It is looked at before it is opened, as a device may act on being opened, and afterwards, as
    // something else may have taken its place.
    struct stat status = {};
    if (::stat(path.constData(), &status) != 0) {
        why = FileFailure::ofSystem(errno);
        return {};
    }
    if (!S_ISREG(status.st_mode)) {
        why = failureOf(status.st_mode);
        return {};
    }
    FileHandle file = FileHandle::open(path, O_RDONLY | O_NONBLOCK);
    if (!file.isValid() || !file.status(status)) {
        why = FileFailure::ofSystem(errno);
        return {};
    }
    if (!S_ISREG(status.st_mode)) {
        why = failureOf(status.st_mode);
        return {};
    }
    return file;
}

bool openRegularFile(QFile &file)
{
    FileFailure why;
    FileHandle handle = openRegularFile(QFile::encodeName(file.fileName()), why);
    return handle.isValid() &&
           file.open(handle.release(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
}

std::optional<QByteArray> readRegularFile(const QString &path, qint64 limit)
{
    QFile file(path);
    if (!openRegularFile(file))
        return std::nullopt;
    const QByteArray bytes = file.read(limit);
    return file.error() == QFileDevice::NoError ? std::optional(bytes) : std::nullopt;
}

} // namespace ardiphon
