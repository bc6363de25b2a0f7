#pragma once

#include "language/LineSource.h"
#include "piece/Piece.h"

#include <QByteArrayList>
#include <QStringList>

namespace ardiphon {

/// A place of a piece where a file is included.
struct IncludeStatement
{
    QString name;                                ///< as it is written
    DocumentRole role = DocumentRole::Orchestra; ///< what is included: orchestra or score

    friend bool operator==(const IncludeStatement &, const IncludeStatement &) = default;
};

/// What \a piece includes, each once, in the order of the text; at most \a most.
QList<IncludeStatement> includesOf(const Piece &piece, int most);

/// The folders in which the compiler looks for what a piece includes, beside that of the file that
/// includes it, the first one first: those that the options of \a piece put into INCDIR, the
/// document's own, and those of \a incdir, which is INCDIR in the environment. Relative ones are
/// left out.
QStringList includeFolders(const Piece &piece, const QString &documentFolder,
                           const QString &incdir);

/// The file that \a name means, by its canonical path: in \a ownFolder, which is that of the file
/// that includes it, or else in the first of \a folders that has one. "" where there is none.
QString includedFile(const QString &name, const QString &ownFolder, const QStringList &folders);

/// A file that is read as a piece of its own.
class PieceOfFile : private LineSource
{
public:
    /// \a bytes as the file has them; \a role is what it is included as.
    PieceOfFile(const QByteArray &bytes, DocumentRole role, const IsOpcode &isOpcode);

    /// See Piece::readOn().
    bool readOn(QDeadlineTimer deadline) { return m_piece.readOn(deadline); }
    const Piece &piece() const { return m_piece; }

private:
    int lineCount() const override { return int(m_lines.size()); }
    QByteArrayView line(int line) const override { return m_lines[line - 1]; }

    QByteArrayList m_lines; ///< before the piece, which is made of them
    Piece m_piece;
};

/// Whether a file of these bytes is no text.
bool isNoText(const QByteArray &bytes);

} // namespace ardiphon
