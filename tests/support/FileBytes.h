#pragma once

#include <QByteArray>
#include <QFile>

/// What the file at \a path holds; "(not there)" when it cannot be read.
inline QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not there)");
}

/// Makes the file at \a path hold \a bytes; ends the run when it cannot.
inline void writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        qFatal("cannot write %s", qPrintable(path));
}
