#include "platform/DocumentFile.h"

#include "platform/FileHandle.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace ardiphon {

namespace {

// The paths that one save deals with, in the system's own bytes.
struct Target
{
    QByteArray path;   ///< of the file itself, behind every symbolic link
    QByteArray folder; ///< with its closing "/"
    bool exists = false;
    struct stat status = {};

    // New files lie beside the old one, hidden; the rest of their name nobody can guess.
    QByteArray besidePrefix() const { return folder + ".ardiphon-"; }
};

// Follows symbolic links also where the last one points to a file that is not there yet.
std::optional<QByteArray> behindLinks(QByteArray path)
{
    constexpr int mostLinks = 40;
    for (int i = 0; i < mostLinks; ++i) {
        QByteArray link(4096, Qt::Uninitialized);
        const ssize_t length = ::readlink(path.constData(), link.data(), size_t(link.size()));
        if (length < 0)
            return path;
        if (length == link.size())
            return std::nullopt;
        link.truncate(length);
        path = link.startsWith('/') ? link : path.first(path.lastIndexOf('/') + 1) + link;
    }
    return std::nullopt;
}

// Nothing when no document can be written there.
std::optional<Target> targetAt(const QString &path)
{
    const QString absolute = QDir::current().absoluteFilePath(path);
    const auto file = behindLinks(QFile::encodeName(absolute));
    if (path.isEmpty() || absolute.contains(QChar::Null) || !file || file->endsWith('/'))
        return std::nullopt;
    Target target{*file, file->first(file->lastIndexOf('/') + 1)};
    if (::lstat(target.path.constData(), &target.status) == 0)
        target.exists = true;
    else if (errno != ENOENT)
        return std::nullopt;
    // Nobody expects a file that is protected to be changed, though its folder would let us.
    if (target.exists && (!S_ISREG(target.status.st_mode) ||
                          ::faccessat(AT_FDCWD, target.path.constData(), W_OK, AT_EACCESS) != 0))
        return std::nullopt;
    return target;
}

bool copyAttribute(int from, int to, const char *name)
{
    const ssize_t size = ::fgetxattr(from, name, nullptr, 0);
    if (size < 0)
        return false;
    QByteArray value(size, Qt::Uninitialized);
    return ::fgetxattr(from, name, value.data(), size_t(size)) == size &&
           ::fsetxattr(to, name, value.constData(), size_t(size), 0) == 0;
}

// Gives a new file the extended attributes of the old one, access lists among them.
bool copyAttributes(int from, int to)
{
    const ssize_t size = ::flistxattr(from, nullptr, 0);
    if (size <= 0)
        return size == 0 || errno == ENOTSUP;
    QByteArray names(size, Qt::Uninitialized);
    if (::flistxattr(from, names.data(), size_t(size)) != size)
        return false;
    for (const QByteArray &name : names.split('\0')) {
        // The security label is the system's to give.
        if (!name.isEmpty() && !name.startsWith("security.") &&
            !copyAttribute(from, to, name.constData()))
            return false;
    }
    return true;
}

// The mode of a file that a program makes without a wish of its own.
mode_t usualMode()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

// Gives the new file what the old one has besides its bytes.
bool takeOver(const Target &target, const FileHandle &file)
{
    if (!target.exists)
        return ::fchmod(file.descriptor(), usualMode()) == 0;
    const FileHandle old = FileHandle::open(target.path, O_RDONLY | O_NONBLOCK);
    struct stat status = {};
    if (!old.isValid() || !file.status(status))
        return false;
    if (status.st_gid != target.status.st_gid &&
        ::fchown(file.descriptor(), uid_t(-1), target.status.st_gid) != 0)
        return false;
    return copyAttributes(old.descriptor(), file.descriptor()) &&
           ::fchmod(file.descriptor(), target.status.st_mode & 07777) == 0;
}

void flushFolder(const QByteArray &folder)
{
    const FileHandle handle = FileHandle::open(folder, O_RDONLY | O_DIRECTORY);
    if (handle.isValid())
        handle.flush();
}

bool holds(const QByteArray &path, const QByteArray &bytes)
{
    const FileHandle file = FileHandle::open(path, O_RDONLY | O_NONBLOCK);
    QByteArray found;
    return file.isValid() && file.readAll(found, bytes.size()) && found == bytes;
}

enum class Outcome { Done, Failed, NeedsWritingInPlace };

Outcome replaceByRename(const Target &target, const QByteArray &bytes)
{
    QByteArray newPath;
    FileHandle file = FileHandle::createBeside(target.besidePrefix(), newPath);
    if (!file.isValid())
        return target.exists ? Outcome::NeedsWritingInPlace : Outcome::Failed;
    const bool alike = takeOver(target, file);
    struct stat status = {};
    const bool whole = alike && file.writeAll(bytes) && file.flush() && file.status(status) &&
                       status.st_size == bytes.size() && file.close();
    if (whole && std::rename(newPath.constData(), target.path.constData()) == 0) {
        flushFolder(target.folder);
        return Outcome::Done;
    }
    ::unlink(newPath.constData());
    return alike || !target.exists ? Outcome::Failed : Outcome::NeedsWritingInPlace;
}

// Puts the old bytes where they survive whatever happens; "" when that is not possible.
QByteArray setAside(const Target &target, const QByteArray &oldBytes)
{
    const QByteArray temporary = QFile::encodeName(QDir::tempPath()) + "/ardiphon-";
    for (const QByteArray &prefix : {target.besidePrefix(), temporary}) {
        QByteArray path;
        FileHandle file = FileHandle::createBeside(prefix, path);
        if (!file.isValid())
            continue;
        if (file.writeAll(oldBytes) && file.flush() && file.close() && holds(path, oldBytes)) {
            flushFolder(path.first(path.lastIndexOf('/') + 1));
            return path;
        }
        ::unlink(path.constData());
    }
    return {};
}

bool overwrite(const QByteArray &path, const QByteArray &bytes)
{
    FileHandle file = FileHandle::open(path, O_WRONLY | O_NONBLOCK);
    return file.isValid() && file.writeAll(bytes) &&
           ::ftruncate(file.descriptor(), off_t(bytes.size())) == 0 && file.flush() && file.close();
}

bool writeInPlace(const Target &target, const QByteArray &bytes)
{
    const auto oldBytes = readDocumentFile(QFile::decodeName(target.path));
    if (!oldBytes)
        return false;
    const QByteArray aside = setAside(target, *oldBytes);
    if (aside.isEmpty())
        return false;
    const bool written = overwrite(target.path, bytes);
    // The old bytes stay aside when they could not even be put back.
    if (written || overwrite(target.path, *oldBytes))
        ::unlink(aside.constData());
    return written;
}

} // namespace

std::optional<QByteArray> readDocumentFile(const QString &path)
{
    if (path.isEmpty() || path.contains(QChar::Null))
        return std::nullopt;
    // Without waiting, as opening a FIFO would for its other end.
    const FileHandle file = FileHandle::open(QFile::encodeName(path), O_RDONLY | O_NONBLOCK);
    struct stat status = {};
    QByteArray bytes;
    if (!file.isValid() || !file.status(status) || !S_ISREG(status.st_mode) ||
        status.st_size > LargestDocument || !file.readAll(bytes, LargestDocument))
        return std::nullopt;
    return bytes;
}

bool writeDocumentFile(const QString &path, const QByteArray &bytes)
{
    const auto target = targetAt(path);
    if (!target)
        return false;
    const bool single =
        !target->exists || (target->status.st_nlink == 1 && target->status.st_uid == ::geteuid());
    const Outcome outcome = single ? replaceByRename(*target, bytes) : Outcome::NeedsWritingInPlace;
    return outcome == Outcome::NeedsWritingInPlace ? writeInPlace(*target, bytes)
                                                   : outcome == Outcome::Done;
}

} // namespace ardiphon
