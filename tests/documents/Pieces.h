#pragma once

#include "start/StartRules.h"
#include "support/FileBytes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QStringList>

/// The pieces of tests/pieces and data/examples, and what the table beside them expects of each.
namespace Pieces {

struct Word
{
    QString text;
    QString color; ///< as in the settings, or "Comment" or "Operator"
};

struct Piece
{
    QString name; ///< relative to its folder
    QString path;
    QString verdict; ///< of the compiler: "compiles", "fails" or "-" for a piece not compiled
    QList<Word> words;

    ardiphon::DocumentRole kind() const { return ardiphon::roleOfPath(name); }
};

inline QStringList folders()
{
    return {QStringLiteral(TEST_SOURCE_DIR "/pieces"),
            QStringLiteral(TEST_SOURCE_DIR "/../data/examples")};
}

inline QList<Word> wordsOf(const QString &column)
{
    QList<Word> words;
    for (const QString &each : column.split(u' ', Qt::SkipEmptyParts)) {
        const qsizetype colon = each.lastIndexOf(u':');
        words.append({each.left(colon), each.mid(colon + 1)});
    }
    return words;
}

/// All rows of the table, in its order.
inline QList<Piece> all()
{
    QList<Piece> pieces;
    const QString table =
        QString::fromUtf8(bytesOf(folders().first() + QStringLiteral("/expected.txt")));
    for (const QString &line : table.split(u'\n')) {
        const QStringList columns = line.split(u'|');
        if (line.startsWith(u';') || columns.size() != 3)
            continue;
        Piece piece{columns[0].trimmed(), {}, columns[1].trimmed(), wordsOf(columns[2])};
        for (const QString &folder : folders())
            if (QFile::exists(QDir(folder).filePath(piece.name)))
                piece.path = QDir(folder).filePath(piece.name);
        pieces.append(piece);
    }
    return pieces;
}

/// The other half of a project: the file of the folder that differs in its last three letters only,
/// and in case. "" when there is none.
inline QString partnerOf(const Piece &piece)
{
    const QString stem = QFileInfo(piece.path).fileName().chopped(3);
    const QString ending = piece.kind() == ardiphon::DocumentRole::Score ? QStringLiteral("orc")
                                                                         : QStringLiteral("sco");
    for (const QFileInfo &file : QFileInfo(piece.path).dir().entryInfoList(QDir::Files))
        if (file.fileName().compare(stem + ending, Qt::CaseInsensitive) == 0)
            return file.filePath();
    return {};
}

} // namespace Pieces
