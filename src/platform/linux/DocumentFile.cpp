#include "platform/DocumentFile.h"

#include "platform/linux/RegularFileHandle.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <tuple>

#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace ardiphon {

namespace {

// The paths that one save uses, in the system's own bytes.
struct Target
{
    QByteArray path;   ///< of the file itself, behind every symbolic link
    QByteArray folder; ///< with its closing "/"
    bool exists = false;
    struct stat status = {};

    // New files are beside the old one, hidden; nobody can guess the rest of their name.
    QByteArray besidePrefix() const { return folder + ".ardiphon-"; }
};

// Why the system call that has just failed did so.
FileFailure failed() { return FileFailure::ofSystem(errno); }

// Follows symbolic links, also where the last one points to a file that does not exist yet.
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

Result<> mayBeWritten(const Target &target)
{
    if (S_ISDIR(target.status.st_mode))
        return FileFailure{FileFailure::Kind::Folder};
    if (!S_ISREG(target.status.st_mode))
        return FileFailure{FileFailure::Kind::NoRegularFile};
    // Nobody expects a write-protected file to be changed, though its folder would permit it.
    if (::faccessat(AT_FDCWD, target.path.constData(), W_OK, AT_EACCESS) != 0)
        return failed();
    return {};
}

// A failure when no document can be written there.
Result<Target> findTarget(const QString &path)
{
    if (path.isEmpty() || path.contains(QChar::Null))
        return FileFailure::ofSystem(EINVAL);
    const auto file = behindLinks(QFile::encodeName(QDir::current().absoluteFilePath(path)));
    if (!file)
        return FileFailure{FileFailure::Kind::LinksInACircle};
    if (file->endsWith('/'))
        return FileFailure{FileFailure::Kind::Folder};
    Target target{*file, file->first(file->lastIndexOf('/') + 1)};
    target.exists = ::lstat(target.path.constData(), &target.status) == 0;
    if (!target.exists && errno != ENOENT)
        return failed();
    if (target.exists)
        if (const auto allowed = mayBeWritten(target); !allowed)
            return allowed.failure();
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
        // The security label is given by the system.
        if (!name.isEmpty() && !name.startsWith("security.") &&
            !copyAttribute(from, to, name.constData()))
            return false;
    }
    return true;
}

// The mode of a new file where a program asks for nothing special.
mode_t usualMode()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

// Gives the new file the group, attributes and mode of the old one, or the usual mode.
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
        std::ignore = handle.flush(); // not every disk can do that; the file itself is safe
}

bool holds(const QByteArray &path, const QByteArray &bytes)
{
    const FileHandle file = FileHandle::open(path, O_RDONLY | O_NONBLOCK);
    QByteArray found;
    return file.isValid() && file.readAll(found, bytes.size()) && found == bytes;
}

bool hasSize(const FileHandle &file, qsizetype size)
{
    struct stat status = {};
    if (!file.status(status))
        return false;
    errno = EIO; // the system reported no error though it cut the file
    return status.st_size == size;
}

Result<> replaceByRename(const Target &target, const QByteArray &bytes)
{
    QByteArray newPath;
    FileHandle file = FileHandle::createBeside(target.besidePrefix(), newPath);
    if (!file.isValid())
        return failed();
    if (takeOver(target, file) && file.writeAll(bytes) && file.flush() &&
        hasSize(file, bytes.size()) && file.close() &&
        std::rename(newPath.constData(), target.path.constData()) == 0) {
        flushFolder(target.folder);
        return {};
    }
    const FileFailure why = failed();
    ::unlink(newPath.constData());
    return why;
}

// Reads the file that is about to be written in place.
Result<QByteArray> readBytes(const QByteArray &path)
{
    const Result<FileHandle> file = openRegularFile(path);
    if (!file)
        return file.failure();
    struct stat status = {};
    QByteArray bytes;
    if (file->status(status) && status.st_size <= LargestDocument &&
        file->readAll(bytes, LargestDocument))
        return bytes;
    if (status.st_size > LargestDocument || errno == EFBIG)
        return FileFailure{FileFailure::Kind::TooLarge};
    return failed();
}

// Writes the old bytes to a file where they are safe, and returns its path.
Result<QByteArray> setAside(const Target &target, const QByteArray &oldBytes)
{
    const QByteArray temporary = QFile::encodeName(QDir::tempPath()) + "/ardiphon-";
    FileFailure why;
    for (const QByteArray &prefix : {target.besidePrefix(), temporary}) {
        QByteArray path;
        FileHandle file = FileHandle::createBeside(prefix, path);
        const bool made = file.isValid();
        if (made && file.writeAll(oldBytes) && file.flush() && file.close() &&
            holds(path, oldBytes)) {
            flushFolder(path.first(path.lastIndexOf('/') + 1));
            return path;
        }
        if (!why.isLackOfRoom()) // of two reasons the one that the user can remove
            why = failed();
        if (made)
            ::unlink(path.constData());
    }
    return why;
}

// Whether there is room for the bytes, checked before any of the old ones is overwritten.
bool hasRoom(const FileHandle &file, qsizetype size)
{
    return size == 0 || ::fallocate(file.descriptor(), FALLOC_FL_KEEP_SIZE, 0, off_t(size)) == 0 ||
           (errno != ENOSPC && errno != EDQUOT); // not every disk can be asked
}

bool fill(const FileHandle &file, const QByteArray &bytes)
{
    return ::lseek(file.descriptor(), 0, SEEK_SET) == 0 && file.writeAll(bytes) &&
           ::ftruncate(file.descriptor(), off_t(bytes.size())) == 0 && file.flush();
}

// A file that has its old content again counts as not changed.
void restoreTimes(const FileHandle &file, const Target &target)
{
    const timespec times[] = {target.status.st_atim, target.status.st_mtim};
    ::futimens(file.descriptor(), times);
}

void giveBackRoom(const FileHandle &file, const Target &target, qsizetype size)
{
    if (file.isValid() && size > target.status.st_size &&
        ::ftruncate(file.descriptor(), target.status.st_size) == 0)
        restoreTimes(file, target);
}

bool putBack(const Target &target, const QByteArray &oldBytes)
{
    FileHandle file = FileHandle::open(target.path, O_WRONLY | O_NONBLOCK);
    const bool back = file.isValid() && fill(file, oldBytes);
    if (back)
        restoreTimes(file, target);
    return back && file.close();
}

Result<> writeInPlace(const Target &target, const QByteArray &bytes)
{
    const Result<QByteArray> oldBytes = readBytes(target.path);
    if (!oldBytes)
        return oldBytes.failure();
    FileHandle file = FileHandle::open(target.path, O_WRONLY | O_NONBLOCK);
    const bool prepared = file.isValid() && hasRoom(file, bytes.size());
    const Result<QByteArray> aside = prepared ? setAside(target, *oldBytes) : failed();
    if (!aside) {
        giveBackRoom(file, target, bytes.size());
        return aside.failure();
    }
    if (fill(file, bytes) && file.close()) {
        ::unlink(aside->constData());
        return {};
    }
    FileFailure why = failed();
    // The copy of the old bytes stays when they could not be put back either.
    if (putBack(target, *oldBytes))
        ::unlink(aside->constData());
    else
        why.oldContent = QFile::decodeName(*aside);
    return why;
}

} // namespace

Result<QByteArray> readDocumentFile(const QString &path)
{
    return readBytes(QFile::encodeName(path));
}

Result<> writeDocumentFile(const QString &path, const QByteArray &bytes)
{
    const Result<Target> target = findTarget(path);
    if (!target)
        return target.failure();
    const bool replaceable =
        !target->exists || (target->status.st_nlink == 1 && target->status.st_uid == ::geteuid());
    FileFailure first;
    if (replaceable) {
        const Result<> replaced = replaceByRename(*target, bytes);
        if (replaced || !target->exists)
            return replaced;
        first = replaced.failure();
    }
    const Result<> written = writeInPlace(*target, bytes);
    if (!written && first.isLackOfRoom()) // the reason of the second attempt says less
        return FileFailure{first.kind, first.error, written.failure().oldContent};
    return written;
}

Result<> removeDocumentFile(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status = {};
    // A read-only disk also refuses to remove what does not exist.
    if (::lstat(name.constData(), &status) != 0 || S_ISDIR(status.st_mode) ||
        ::unlink(name.constData()) == 0)
        return {};
    return failed();
}

} // namespace ardiphon
