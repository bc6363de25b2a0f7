#pragma once

#include <QByteArray>
#include <QFile>

/// What the file at \a path holds; "(not there)" when it cannot be read.
inline QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not there)");
}
