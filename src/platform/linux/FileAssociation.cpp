#include "platform/FileAssociation.h"

#include "platform/DocumentFile.h"
#include "platform/ProgramFolder.h"
#include "platform/linux/DefaultApplications.h"
#include "platform/linux/DesktopDatabases.h"
#include "platform/linux/MadeFiles.h"
#include "platform/linux/OpenerEntry.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>

namespace ardiphon {

namespace {

const QString OpenerPath = QStringLiteral("applications/") + OpenerEntry::fileName();
const QString EntryCache = QStringLiteral("applications/mimeinfo.cache");
const QString TypePackages = QStringLiteral("mime/packages");

QString userDataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

QString defaultsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/mimeapps.list");
}

/// "csound-csd" for "CSoundCSD".
QString nameOfClass(QString classKey)
{
    static const QRegularExpression wordStart(QStringLiteral("(?<=[a-z])(?=[A-Z])"));
    return classKey.replace(wordStart, QStringLiteral("-")).toLower();
}

/// The names of one class in the user's folders.
struct ClassNames
{
    explicit ClassNames(const QString &classKey)
        : type(QStringLiteral("text/x-") + nameOfClass(classKey)),
          icon(QStringLiteral("ardiphon-") + nameOfClass(classKey)),
          package(QStringLiteral("%1/ardiphon-%2.xml").arg(TypePackages, nameOfClass(classKey)))
    {
    }
    QString type;
    QString icon;
    QString package;
};

/// The higher weight of the pattern prevails over another type with the same extension.
QByteArray typePackage(const ClassNames &names, const QString &extension,
                       const QString &description, bool hasIcon)
{
    const QString icon =
        hasIcon ? QStringLiteral("    <icon name=\"%1\"/>\n").arg(names.icon) : QString();
    return QStringLiteral(R"(<?xml version="1.0" encoding="UTF-8"?>
<mime-info xmlns="http://www.freedesktop.org/standards/shared-mime-info">
  <mime-type type="%1">
    <comment>%2</comment>
    <sub-class-of type="text/plain"/>
%3    <glob pattern="*%4" weight="60"/>
  </mime-type>
</mime-info>
)")
        .arg(names.type, description.toHtmlEscaped(), icon, extension.toHtmlEscaped())
        .toUtf8();
}

QString iconPlace(const QString &size, const QString &fileName)
{
    return QStringLiteral("icons/hicolor/%1/mimetypes/%2").arg(size, fileName);
}

void addIcons(MadeFiles &files, const QString &picture, const QString &iconName)
{
    const QFileInfo svg(picture);
    const auto copy = [&](const QString &source, const QString &place) {
        if (const auto bytes = readDocumentFile(source))
            files.write(place, *bytes);
    };
    copy(picture, iconPlace(QStringLiteral("scalable"), iconName + QStringLiteral(".svg")));
    for (const QString &size :
         svg.dir().entryList({QStringLiteral("*x*")}, QDir::Dirs | QDir::NoDotAndDotDot))
        copy(QStringLiteral("%1/%2/%3.png").arg(svg.path(), size, svg.completeBaseName()),
             iconPlace(size, iconName + QStringLiteral(".png")));
}

void removeIcons(MadeFiles &files, const QString &iconName)
{
    const QDir theme(files.path(QStringLiteral("icons/hicolor")));
    for (const QString &size : theme.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        for (const char *ending : {".svg", ".png"})
            files.remove(iconPlace(size, iconName + QLatin1String(ending)));
}

/// Returns what failed, as a sentence, or "".
QString changeDefaults(QByteArray (*change)(const QByteArray &, const QByteArray &,
                                            const QByteArray &),
                       const QString &type)
{
    const QString path = defaultsFile();
    const auto before = QFileInfo::exists(path) ? readDocumentFile(path) : QByteArray();
    if (!before)
        return path + QStringLiteral(" cannot be read.");
    QDir().mkpath(QFileInfo(path).path());
    const QByteArray after = change(*before, type.toUtf8(), OpenerEntry::fileName().toUtf8());
    if (after == *before)
        return {};
    const bool empty = after.isEmpty() && !QFileInfo(path).isSymLink();
    const bool done = empty ? QFile::remove(path) : bool(writeDocumentFile(path, after));
    return done ? QString() : path + QStringLiteral(" cannot be written.");
}

/// Removes a type from the opener with that content, and the opener with its last type. Returns
/// whether the opener is still there.
bool removeType(MadeFiles &files, const QByteArray &openerText, const QString &type)
{
    const QByteArray list = OpenerEntry::typesLine(OpenerEntry::fromText(openerText).types);
    QStringList types = OpenerEntry::fromText(openerText).types;
    types.removeAll(type);
    if (types.isEmpty())
        files.remove(OpenerPath);
    else
        files.write(OpenerPath,
                    QByteArray(openerText).replace(list, OpenerEntry::typesLine(types)));
    return !types.isEmpty();
}

/// Removes what is left after the last association: the folders that were made for it, and what the
/// updaters wrote there.
void removeTraces(MadeFiles &files)
{
    if (files.isMade(QStringLiteral("mime")) && QDir(files.path(TypePackages)).isEmpty())
        QDir(files.path(QStringLiteral("mime"))).removeRecursively();
    const auto cache = readDocumentFile(files.path(EntryCache));
    if (files.isMade(EntryCache) && cache && cache->trimmed() == "[MIME Cache]")
        files.remove(EntryCache);
    files.removeEmptyFolders();
}

} // namespace

QString CreateFileAssociation(const QString &ClassKey, const QString &Extension,
                              const QString &Description, const QString &Icon,
                              const QString &Executable, const QString &Arguments)
{
    if (ClassKey.isEmpty())
        return {};
    const QString programFolder = QCoreApplication::applicationDirPath();
    const ClassNames names(ClassKey);
    MadeFiles files(userDataFolder());
    OpenerEntry opener =
        OpenerEntry::fromText(readDocumentFile(files.path(OpenerPath)).value_or(QByteArray()));
    files.made = opener.made;

    files.makeFolder(QStringLiteral("mime/text"));
    files.write(names.package, typePackage(names, Extension, Description, !Icon.isEmpty()));
    if (!Icon.isEmpty())
        addIcons(files, Icon, names.icon);
    files.makeFolder(QStringLiteral("applications"));
    files.noteIfAbsent(EntryCache);

    opener.program = programPath(programFolder, Executable);
    opener.arguments = Arguments;
    opener.icon = programPath(programFolder, QStringLiteral("Icons/ardiphon.svg"));
    if (!opener.types.contains(names.type))
        opener.types.append(names.type);
    opener.made = files.made;
    files.write(OpenerPath, opener.text());
    files.note(changeDefaults(withDefault, names.type));
    files.note(updateDesktopDatabases(files.folder()));
    return files.failure();
}

QString RemoveFileAssociation(const QString &ClassKey, const QString &Extension)
{
    Q_UNUSED(Extension); // only the package of the type contains it
    const ClassNames names(ClassKey);
    MadeFiles files(userDataFolder());
    const auto openerText = readDocumentFile(files.path(OpenerPath));
    files.made = OpenerEntry::fromText(openerText.value_or(QByteArray())).made;

    files.note(changeDefaults(withoutDefault, names.type));
    files.remove(names.package);
    removeIcons(files, names.icon);
    const bool lastOne = openerText && !removeType(files, *openerText, names.type);
    files.note(updateDesktopDatabases(files.folder()));
    if (lastOne)
        removeTraces(files);
    return files.failure();
}

} // namespace ardiphon
