#include "app/modRegistry.h"

#include "platform/DocumentFile.h"
#include "platform/RunFolder.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <filesystem>
#include <system_error>
#include <tuple>

namespace ardiphon {

namespace {

QString pathInFile(const QString &keyPath, const QString &valueName)
{
    QString path = keyPath;
    path.replace(u'\\', u'/');
    while (path.endsWith(u'/'))
        path.chop(1);
    return path + u'/' + valueName;
}

/// The path under which the file has the value already, in any case of letters, else \a path.
QString storedPath(const QSettings &file, const QString &path)
{
    const QStringList keys = file.allKeys();
    if (keys.contains(path))
        return path;
    for (const QString &key : keys)
        if (key.compare(path, Qt::CaseInsensitive) == 0)
            return key;
    return path;
}

bool isFileOrNothing(const QString &path)
{
    const QFileInfo file(path);
    return file.isFile() || !file.exists();
}

const QString NoPlace = impossibleFolder() + QLatin1String("settings.ini");

} // namespace

SettingsStore::SettingsStore(const QString &filePath)
    : m_path(filePath),
      m_isOpened(isFileOrNothing(filePath)),
      m_file(m_isOpened ? filePath : NoPlace, QSettings::IniFormat)
{
}

bool SettingsStore::isUsable() const { return m_isOpened && isFileOrNothing(m_path); }

/// The library reports that a write failed, but not why: so the same is tried on the disk once
/// more.
Result<> SettingsStore::lastWrite() const
{
    if (!isUsable()) {
        const auto read = readDocumentFile(m_path);
        return read ? FileFailure{FileFailure::Kind::NoPermission} : read.failure();
    }
    QSettings unwritten(m_path, QSettings::IniFormat);
    unwritten.sync();
    if (unwritten.status() == QSettings::NoError)
        return {};
    const QString probe = m_path + QStringLiteral(".probe");
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(QFileInfo(m_path).path()).toStdString(),
                                        error);
    if (error)
        return FileFailure::ofSystem(error.value());
    constexpr int settingsLength = 16384;
    const Result<> written = writeDocumentFile(probe, QByteArray(settingsLength, ' '));
    if (!written)
        return written;
    std::ignore = removeDocumentFile(probe); // a file that stays does no harm
    return FileFailure{FileFailure::Kind::NoPermission};
}

QString SettingsStore::userFilePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Ardiphon/settings.ini");
}

QString ReadRegistryString(SettingsStore &store, const QString &keyPath, const QString &valueName,
                           const QString &defaultText)
{
    if (!store.isUsable())
        return defaultText;
    store.file().sync(); // another running copy may have written since
    const QVariant value =
        store.file().value(storedPath(store.file(), pathInFile(keyPath, valueName)));
    if (value.typeId() != QMetaType::QString)
        return defaultText;
    const QString text = value.toString();
    return text.left(text.indexOf(QChar::Null));
}

void WriteRegistryString(SettingsStore &store, const QString &keyPath, const QString &valueName,
                         const QString &text)
{
    WriteRegistryStrings(store, keyPath, {{valueName, text}});
}

void WriteRegistryStrings(SettingsStore &store, const QString &keyPath,
                          const QList<std::pair<QString, QString>> &values)
{
    if (!store.isUsable())
        return;
    QSettings &file = store.file();
    file.sync();
    for (const auto &[name, text] : values)
        file.setValue(storedPath(file, pathInFile(keyPath, name)), text);
    file.sync();
}

} // namespace ardiphon
