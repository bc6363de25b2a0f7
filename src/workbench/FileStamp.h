#pragma once

#include <QDateTime>
#include <QString>

namespace ardiphon {

/// Shows whether a file was changed by someone else: when it was written and how long it is.
class FileStamp
{
public:
    /// The stamp of a file that does not exist.
    FileStamp() = default;
    /// The stamp of the file at \a path as it is now.
    static FileStamp of(const QString &path);

    /// Whether there was a file when this stamp was taken.
    bool isOfAFile() const { return m_size >= 0; }
    /// Whether there is a file at \a path that is not as it was when this stamp was taken.
    bool isOutdated(const QString &path) const;

    friend bool operator==(const FileStamp &, const FileStamp &) = default;

private:
    QDateTime m_written;
    qint64 m_size = -1;
};

} // namespace ardiphon
