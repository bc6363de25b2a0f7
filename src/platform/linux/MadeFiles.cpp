#include "platform/linux/MadeFiles.h"

#include "platform/DocumentFile.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace ardiphon {

QString MadeFiles::path(const QString &relative) const
{
    return QDir::cleanPath(m_folder + u'/' + relative);
}

void MadeFiles::noteIfAbsent(const QString &relative)
{
    if (!QFileInfo::exists(path(relative)) && !isMade(relative))
        made.append(relative);
}

void MadeFiles::makeFolder(const QString &relative)
{
    QStringList missing;
    for (QString each = path(relative); !QFileInfo::exists(each); each = QFileInfo(each).path())
        missing.prepend(each);
    for (const QString &each : missing)
        if (QDir().mkdir(each))
            made.append(QDir(m_folder).relativeFilePath(each));
}

void MadeFiles::write(const QString &relative, const QByteArray &bytes)
{
    makeFolder(QFileInfo(relative).path());
    if (!writeDocumentFile(path(relative), bytes))
        note(path(relative) + QStringLiteral(" cannot be written."));
}

void MadeFiles::remove(const QString &relative)
{
    if (!QFile::remove(path(relative)) && QFileInfo::exists(path(relative)))
        note(path(relative) + QStringLiteral(" cannot be removed."));
}

void MadeFiles::note(const QString &failure)
{
    if (m_failure.isEmpty())
        m_failure = failure;
}

void MadeFiles::removeEmptyFolders() const
{
    std::for_each(made.crbegin(), made.crend(),
                  [this](const QString &each) { QDir().rmdir(path(each)); });
}

} // namespace ardiphon
