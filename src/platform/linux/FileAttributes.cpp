#include "platform/FileAttributes.h"

#include <QFile>

#include <sys/stat.h>

namespace ardiphon {

void ClearFileAttributes(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat info = {};
    if (stat(name.constData(), &info) == 0 && S_ISREG(info.st_mode) && !(info.st_mode & S_IWUSR))
        chmod(name.constData(), (info.st_mode & 07777) | S_IWUSR);
}

} // namespace ardiphon
