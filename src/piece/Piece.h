#pragma once

#include "language/LineRun.h"
#include "piece/PiecePlace.h"
#include "piece/PieceText.h"

#include <QString>

#include <deque>
#include <vector>

namespace ardiphon {

/// What a piece of music is made of, read from its texts: a unified file, or an orchestra with its
/// score. It follows their edits, and is asked for values; it never changes a text and never fails.
class Piece
{
public:
    struct Source
    {
        DocumentRole role;
        const LineSource *lines;
    };

    /// The sources outlive it.
    Piece(const std::vector<Source> &sources, IsOpcode isOpcode);
    Q_DISABLE_COPY_MOVE(Piece)

    /// Lines of a text have changed. They are read later, by readOn().
    void change(DocumentRole role, const TextChange &change);
    /// Reads until all is read or \a deadline has passed; at least a hundred lines or so. True when
    /// all is read.
    bool readOn(QDeadlineTimer deadline);
    bool isRead() const;

    /// The text of that role; null where the piece has none.
    const PieceText *text(DocumentRole role) const;
    const std::deque<PieceText> &texts() const { return m_texts; }
    /// The text that holds the orchestra, or the score: in a unified file both are one.
    const PieceText *orchestra() const;
    const PieceText *score() const;

    const QByteArray &nameOf(const Landmark &mark) const { return m_names[mark.name]; }
    QString nameText(const Landmark &mark) const { return QString::fromUtf8(nameOf(mark)); }
    PiecePlace placeOf(const PieceText &text, PlacedLandmark found) const;
    /// Whether the language has an opcode of that name; one of the piece does not count.
    bool isOpcode(QByteArrayView name) const { return m_isOpcode(name); }
    /// Whether its orchestra defines an opcode of that name.
    bool definesOpcode(QByteArrayView name) const
    {
        return orchestra() != nullptr && orchestra()->definesOpcode(name);
    }

    qsizetype memory() const;

private:
    const IsOpcode m_isOpcode;
    NameTable m_names;
    std::deque<PieceText> m_texts;
};

/// How many characters the first \a bytes of a line are.
int charactersOf(QByteArrayView line, qsizetype bytes);

} // namespace ardiphon
