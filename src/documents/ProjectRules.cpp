#include "documents/ProjectRules.h"

#include "documents/DocumentRules.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace ardiphon {

const ProjectHalf OrchestraHalf{QStringLiteral("Orchestra"), QStringLiteral("orc"),
                                QStringLiteral("Cannot find File Orchestra"),
                                DocumentRole::Orchestra};
const ProjectHalf ScoreHalf{QStringLiteral("Score"), QStringLiteral("sco"),
                            QStringLiteral("Cannot find File Score!"), DocumentRole::Score};

QString ProjectHalf::changedLine() const
{
    return QStringLiteral("File %1 has changed!").arg(name);
}

QString ProjectHalf::openTitle() const
{
    return QStringLiteral("Open %1 (*.%2)").arg(name, extension.toUpper());
}

QString ProjectHalf::openFilter() const
{
    return QStringLiteral("Csound %1 (*.%2)|*.%2|All Files (*.*)|*.*").arg(name, extension);
}

QString ProjectHalf::saveTitle() const
{
    return QStringLiteral("Save %1 As ... (*.%2)").arg(name, extension.toUpper());
}

QString ProjectHalf::saveFilter() const
{
    return QStringLiteral("Csound %1 (*.%2)|*.%2|Text Files (*.txt)|*.txt|All Files (*.*)|*.*")
        .arg(name, extension);
}

QString ProjectHalf::label(const QString &fileName) const
{
    return QStringLiteral("File ") + name + QStringLiteral(": ") + fileName;
}

std::optional<QString> ProjectHalf::shortLabel(const QString &fileName)
{
    if (fileName.isEmpty() || fileName == Untitled)
        return std::nullopt;
    return fileName.left(3) + QStringLiteral(" ~ \\") +
           fileName.mid(fileName.lastIndexOf(u'/') + 1);
}

QString pathWithExtension(const QString &path, const QString &extension)
{
    return path.left(std::max<qsizetype>(path.size() - 4, 0)) + u'.' + extension;
}

QString pathWithEnding(const QString &path, const QString &ending)
{
    return path.left(std::max<qsizetype>(path.size() - 3, 0)) + ending;
}

std::optional<QString> existingPartner(const QString &path)
{
    const QFileInfo exact(path);
    if (exact.isFile())
        return path;
    const QFileInfoList others = exact.dir().entryInfoList(QDir::Files | QDir::Hidden, QDir::Name);
    for (const QFileInfo &other : others)
        if (other.fileName().compare(exact.fileName(), Qt::CaseInsensitive) == 0)
            return other.filePath();
    return std::nullopt;
}

bool isOneFile(const QString &path, const QString &other)
{
    const auto native = [](const QString &name) {
        return std::filesystem::path(QFile::encodeName(name).toStdString());
    };
    std::error_code thereIsNone;
    return path == other || std::filesystem::equivalent(native(path), native(other), thereIsNone);
}

QString missingScoreText(const QString &scorePath)
{
    return QStringLiteral("File Score: ") + scorePath + QStringLiteral(" hasn't found!");
}

} // namespace ardiphon
