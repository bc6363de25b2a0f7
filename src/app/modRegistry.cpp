#include "app/modRegistry.h"

#include <QStandardPaths>

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

/// The path under which the file holds the value already, in whatever case, or else the path asked.
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

} // namespace

SettingsStore::SettingsStore(const QString &filePath) : m_file(filePath, QSettings::IniFormat) {}

QString SettingsStore::userFilePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Ardiphon/settings.ini");
}

QString ReadRegistryString(SettingsStore &store, const QString &keyPath, const QString &valueName,
                           const QString &defaultText)
{
    store.file().sync(); // another running copy may have written meanwhile
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
    QSettings &file = store.file();
    file.sync();
    for (const auto &[name, text] : values)
        file.setValue(storedPath(file, pathInFile(keyPath, name)), text);
    file.sync();
}

} // namespace ardiphon
