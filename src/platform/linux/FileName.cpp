#include "platform/FileName.h"

#include "platform/FileFailure.h"

#include <QFile>
#include <QFileInfo>

#include <cstdlib>

#include <unistd.h>

namespace ardiphon {

namespace {

bool comesBack(const QByteArray &name)
{
    return QFile::encodeName(QFile::decodeName(name)) == name;
}

QByteArray currentFolder()
{
    char *const path = ::get_current_dir_name();
    const QByteArray folder(path);
    std::free(path);
    return folder;
}

} // namespace

bool isNamable(const QByteArray &name)
{
    return comesBack(name) && (name.startsWith('/') || comesBack(currentFolder()));
}

bool isBrokenName(const QString &path)
{
    return path.contains(QChar::ReplacementCharacter) && !QFileInfo::exists(path);
}

QString brokenNameText(const QString &path)
{
    return notOpenedText(path, {FileFailure::Kind::NameNotUtf8});
}

} // namespace ardiphon
