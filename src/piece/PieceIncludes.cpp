#include "piece/PieceIncludes.h"

#include "language/DocumentText.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int MostOptionLines = 200;
constexpr qsizetype LongestOptions = 4096; ///< bytes of a line
constexpr qsizetype BytesToKnowAText = 8192;
constexpr LandmarkKinds AnyTag = kindsOf(LandmarkKind::SectionBegin, LandmarkKind::SectionEnd);

/// The compiler separates folders by either.
QStringList foldersIn(const QString &list)
{
    static const QRegularExpression separator(QStringLiteral("[:;]"));
    QStringList folders = list.split(separator, Qt::SkipEmptyParts);
    folders.removeIf([](const QString &folder) { return !QDir::isAbsolutePath(folder); });
    return folders;
}

/// What a line of the options puts into INCDIR.
QStringList foldersOfOptions(QByteArrayView line)
{
    static const QRegularExpression option(
        QStringLiteral("(?:^|\\s)(?:\"--env:INCDIR\\+?=([^\"]*)\"|--env:INCDIR\\+?=(\\S*))"));
    QStringList folders;
    const QString text = QString::fromUtf8(line.first(std::min(line.size(), LongestOptions)));
    if (text.trimmed().startsWith(u';'))
        return folders;
    for (auto found = option.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        folders += foldersIn(match.captured(1) + match.captured(2));
    }
    return folders;
}

QStringList foldersOfOptions(const PieceText &text)
{
    QStringList folders;
    text.visitKind(LandmarkKind::SectionBegin, [&](PlacedLandmark found) {
        if (PieceSection(found.mark->detail) != PieceSection::Options)
            return true;
        int last = std::min(text.lineCount(), found.line + MostOptionLines);
        text.visit(found.line + 1, last, AnyTag, [&](PlacedLandmark tag) {
            last = tag.line - 1;
            return false;
        });
        for (int line = found.line + 1; line <= last; ++line)
            folders += foldersOfOptions(text.line(line));
        return false;
    });
    return folders;
}

QByteArrayList linesOf(const QByteArray &bytes)
{
    return withLineEnds(decodeDocument(bytes).utf8, LineEnd::Lf).split('\n');
}

} // namespace

QList<IncludeStatement> includesOf(const Piece &piece, int most)
{
    QList<IncludeStatement> includes;
    for (const PieceText &text : piece.texts()) {
        text.visitKind(LandmarkKind::Include, [&](PlacedLandmark found) {
            const bool isScore = text.stateAt(found.line).section == PieceSection::Score;
            const IncludeStatement statement{piece.nameText(*found.mark),
                                             isScore ? DocumentRole::Score
                                                     : DocumentRole::Orchestra};
            if (!includes.contains(statement))
                includes.append(statement);
            return includes.size() < most;
        });
    }
    return includes;
}

QStringList includeFolders(const Piece &piece, const QString &documentFolder, const QString &incdir)
{
    QStringList folders;
    for (const PieceText &text : piece.texts())
        folders += foldersOfOptions(text);
    if (!documentFolder.isEmpty())
        folders.append(documentFolder);
    return folders + foldersIn(incdir);
}

QString includedFile(const QString &name, const QString &ownFolder, const QStringList &folders)
{
    QStringList places = folders;
    if (!ownFolder.isEmpty())
        places.prepend(ownFolder);
    if (QDir::isAbsolutePath(name))
        places = {QString()};
    for (const QString &folder : places) {
        const QFileInfo file(QDir(folder), name);
        if (file.exists() && !file.isDir())
            return file.canonicalFilePath();
    }
    return QString();
}

PieceOfFile::PieceOfFile(const QByteArray &bytes, DocumentRole role, const IsOpcode &isOpcode)
    : m_lines(linesOf(bytes)), m_piece({{role, this}}, isOpcode)
{
}

bool isNoText(const QByteArray &bytes)
{
    return bytes.first(std::min(bytes.size(), BytesToKnowAText)).contains('\0');
}

} // namespace ardiphon
