#include "workbench/FileStamp.h"

#include <QFileInfo>

namespace ardiphon {

FileStamp FileStamp::of(const QString &path)
{
    FileStamp stamp;
    const QFileInfo file(path);
    if (file.exists()) {
        stamp.m_written = file.lastModified();
        stamp.m_size = file.size();
    }
    return stamp;
}

bool FileStamp::isOutdated(const QString &path) const
{
    const FileStamp now = of(path);
    return !(now == FileStamp()) && !(now == *this);
}

} // namespace ardiphon
