#include "platform/FileFailure.h"

#include "platform/DocumentFile.h"

#include <cerrno>
#include <cstring>

namespace ardiphon {

namespace {

using Kind = FileFailure::Kind;

Kind kindOf(int error)
{
    switch (error) {
    case ENOSPC:
        return Kind::DiskFull;
    case EDQUOT:
        return Kind::QuotaUsed;
    case EFBIG:
        return Kind::SizeLimit;
    case EACCES:
    case EPERM:
        return Kind::NoPermission;
    case EROFS:
        return Kind::ReadOnlyDisk;
    case ENOENT:
    case ENOTDIR:
        return Kind::NotThere;
    case ENAMETOOLONG:
        return Kind::NameTooLong;
    case ELOOP:
        return Kind::LinksInACircle;
    case EISDIR:
        return Kind::Folder;
    default:
        return Kind::System;
    }
}

} // namespace

FileFailure FileFailure::ofSystem(int error) { return {kindOf(error), error}; }

bool FileFailure::isLackOfRoom() const
{
    return kind == Kind::DiskFull || kind == Kind::QuotaUsed || kind == Kind::SizeLimit;
}

QString reasonText(const FileFailure &failure, const QString &missing)
{
    switch (failure.kind) {
    case Kind::DiskFull:
        return QStringLiteral("the disk is full");
    case Kind::QuotaUsed:
        return QStringLiteral("your share of the disk is used up");
    case Kind::SizeLimit:
        return QStringLiteral("the disk takes no file of this size");
    case Kind::NoPermission:
        return QStringLiteral("permission is denied");
    case Kind::ReadOnlyDisk:
        return QStringLiteral("the disk is read-only");
    case Kind::NotThere:
        return missing + QStringLiteral(" does not exist");
    case Kind::NameTooLong:
        return QStringLiteral("its name is too long");
    case Kind::LinksInACircle:
        return QStringLiteral("its links lead in a circle");
    case Kind::Folder:
        return QStringLiteral("it is a folder");
    case Kind::NoRegularFile:
        return QStringLiteral("it is no regular file");
    case Kind::TooLarge:
        return QStringLiteral("it is larger than %1 MB").arg(LargestDocument / 1024 / 1024);
    case Kind::NameNotUtf8:
        return QStringLiteral("its name is not UTF-8");
    case Kind::NotRead:
        return QStringLiteral("it could not be read, and what it holds would be lost");
    case Kind::System:
        return QStringLiteral("the system reports \"%1\"")
            .arg(QString::fromLocal8Bit(std::strerror(failure.error)));
    case Kind::None:
        break;
    }
    return QStringLiteral("the reason is not known");
}

QString notSavedText(const QString &path, const FileFailure &failure)
{
    const QString reason = reasonText(failure, QStringLiteral("its folder"));
    const QString copy =
        failure.oldContent.isEmpty()
            ? QString()
            : QStringLiteral("; what it held before lies in \"%1\"").arg(failure.oldContent);
    return QStringLiteral("The file \"") + path + QStringLiteral("\" was not saved: ") + reason +
           copy + u'.';
}

QString notOpenedText(const QString &path, const FileFailure &failure)
{
    return QStringLiteral("The file \"") + path + QStringLiteral("\" cannot be opened: ") +
           reasonText(failure, QStringLiteral("it")) + u'.';
}

} // namespace ardiphon
