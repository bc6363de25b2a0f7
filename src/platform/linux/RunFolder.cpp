#include "platform/RunFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cerrno>
#include <csignal>

#include <sys/stat.h>
#include <unistd.h>

namespace ardiphon {

namespace {

const QString Prefix = QStringLiteral("ardiphon-");

bool isUsable(const QString &parent)
{
    return !parent.contains(u' ') &&
           access(QFile::encodeName(parent).constData(), W_OK | X_OK) == 0;
}

bool isOwnFolder(const QString &path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::geteuid();
}

bool isRunning(qint64 process) { return kill(pid_t(process), 0) == 0 || errno == EPERM; }

/// Folders are named ardiphon-<process>-<random>, so one whose process has ended is a leftover.
void removeLeftovers(const QString &parent)
{
    const auto folders = QDir(parent).entryInfoList({Prefix + u'*'}, QDir::Dirs | QDir::NoSymLinks);
    for (const QFileInfo &folder : folders) {
        const qint64 process = folder.fileName().section(u'-', 1, 1).toLongLong();
        if (process > 0 && folder.ownerId() == geteuid() && !isRunning(process))
            QDir(folder.absoluteFilePath()).removeRecursively();
    }
}

QString folderTemplate(const QString &parent)
{
    removeLeftovers(parent);
    return QStringLiteral("%1/%2%3-XXXXXX")
        .arg(parent, Prefix)
        .arg(QCoreApplication::applicationPid());
}

} // namespace

RunFolder::RunFolder(const QString &parent, const QString &otherwise)
    : m_folder(folderTemplate(isUsable(parent) ? parent : otherwise))
{
}

/// What another user has put in the place of a removed folder is not removed.
RunFolder::~RunFolder() { m_folder.setAutoRemove(isOwnFolder(m_folder.path())); }

QString RunFolder::path() const
{
    return m_folder.isValid() ? m_folder.path() + u'/' : impossibleFolder();
}

/// This path is not a folder on any machine.
QString impossibleFolder() { return QStringLiteral("/dev/null/"); }

bool restoreRunFolder(const QString &path)
{
    const QString folder = QDir::cleanPath(path);
    return ::mkdir(QFile::encodeName(folder).constData(), 0700) == 0 || isOwnFolder(folder);
}

} // namespace ardiphon
