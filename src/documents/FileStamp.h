#pragma once

#include <QDateTime>
#include <QString>

namespace ardiphon {

/// What tells whether a file was changed by someone else: when it was written and how long it is.
class FileStamp
{
public:
    FileStamp() = default;
    /// The stamp of the file as it is now; one that does not exist has none.
    static FileStamp of(const QString &path);

    /// Whether the file is there, and is not as it was when this stamp was taken of that path.
    bool isOutdated(const QString &path) const;

    friend bool operator==(const FileStamp &, const FileStamp &) = default;

private:
    QString m_path;
    QDateTime m_written;
    qint64 m_size = -1;
};

} // namespace ardiphon
