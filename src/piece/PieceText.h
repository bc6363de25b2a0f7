#pragma once

#include "app/DocumentRole.h"
#include "language/LineSource.h"
#include "language/TextChange.h"
#include "piece/LandmarkList.h"
#include "piece/NameCounts.h"
#include "piece/OrchestraLine.h"
#include "piece/PieceState.h"
#include "piece/ScorePlayers.h"

#include <QDeadlineTimer>

#include <functional>
#include <vector>

namespace ardiphon {

/// A set of kinds of landmarks.
using LandmarkKinds = quint32;

inline constexpr LandmarkKinds AllLandmarks = ~LandmarkKinds(0);

constexpr LandmarkKinds kindsOf(LandmarkKind kind) { return LandmarkKinds(1) << int(kind); }

template <typename... Kinds>
constexpr LandmarkKinds kindsOf(LandmarkKind kind, Kinds... others)
{
    return kindsOf(kind) | kindsOf(others...);
}

/// A landmark with its line in the text.
struct PlacedLandmark
{
    int line = 1; ///< from 1
    const Landmark *mark = nullptr;
};

/// The reading of one text of a piece: the landmarks of its lines. It follows the edits of the
/// text: change() only notes the lines, and readOn() reads them when there is time, and those below
/// whose meaning has changed. The lines are held in blocks of about fifty, fewer where they are
/// long, so that an edit costs the same in any text.
class PieceText
{
public:
    static constexpr qsizetype LongestLine = 32768; ///< bytes; what is behind is read by no one

    /// \a lines, \a names and \a isOpcode outlive it. No line has been read yet.
    PieceText(DocumentRole role, const LineSource &lines, NameTable &names,
              const IsOpcode &isOpcode);

    DocumentRole role() const { return m_role; }
    int lineCount() const { return m_lineCount; }
    /// Bytes of a line; see LineSource.
    QByteArrayView line(int line) const { return m_lines.line(line); }

    /// Lines have changed; reads none of them.
    void change(const TextChange &change);
    /// Reads lines until all are read or \a deadline has passed; at least one block. True when all
    /// are read.
    bool readOn(QDeadlineTimer deadline);
    bool isRead() const { return m_firstStale >= m_blocks.size(); }

    /// Calls \a visit for the landmarks from line \a first to line \a last in their order, until it
    /// returns false. Of lines that have not been read yet there are those of before.
    void visit(int first, int last, const std::function<bool(PlacedLandmark)> &visit) const;
    /// The same for those of some kinds; blocks without any cost next to nothing.
    void visit(int first, int last, LandmarkKinds kinds,
               const std::function<bool(PlacedLandmark)> &visit) const;
    /// The same of all kinds from line \a first back to the beginning.
    void visitBack(int first, const std::function<bool(PlacedLandmark)> &visit) const;

    /// Calls \a visit for the landmarks of one kind in their order, until it returns false; costs
    /// little where they are few.
    void visitKind(LandmarkKind kind, const std::function<bool(PlacedLandmark)> &visit) const;

    /// What the lines above say of \a line; reads up to a block of lines. Behind the last line it
    /// is what they say of that.
    PieceState stateAt(int line) const;
    /// Whether an opcode of that name is defined, in any line.
    bool definesOpcode(QByteArrayView name) const { return m_opcodes.contains(name); }
    /// Lines that may play the instrument \a name, whether they name or carry it: calls \a visit
    /// with the first and the last line of ranges from line \a from on, until it returns false.
    void visitPlayed(QByteArrayView name, int from,
                     const std::function<bool(int first, int last)> &visit) const;
    /// The line above whose instrument a line plays that carries it, when it stands at \a line; 0
    /// where there is none.
    int lineCarriedAt(int line) const;

    /// What it takes, in bytes.
    qsizetype memory() const;

private:
    struct Block
    {
        int lines = 0;
        bool isStale = true;
        LandmarkKinds kinds = 0; ///< of its marks
        PieceState entry;
        PieceState exit;
        ScorePlayers players;
        std::vector<Landmark> marks;
    };
    struct Position
    {
        size_t block = 0;
        int firstLine = 1;
    };

    Position positionOf(int line) const;
    void read(Position position);
    int lastOwnPlay(Position position, int end) const;
    quint64 carriedInto(Position position) const;
    void splitBehind(size_t block, int lines);
    PieceState readBlockLine(LandmarkList &marks, PieceState state, ScorePlayers &players) const;
    void makeStale(size_t block);
    void countOpcodes(const Block &block, int times);
    void removeLines(Position position, int line, int count);
    void addLines(Position position, int count);
    PieceState initialState() const;

    const DocumentRole m_role;
    const LineSource &m_lines;
    NameTable &m_names;
    const IsOpcode &m_isOpcode;
    std::vector<Block> m_blocks;
    NameCounts m_opcodes; ///< that the blocks define
    int m_lineCount = 0;
    size_t m_firstStale = 0; ///< all blocks before it are read
    size_t m_endStale = 0;   ///< each block behind it goes on from the one above as it was read
    std::vector<Landmark> m_found; ///< of the block that is read, before they have their room
    mutable Position m_last;       ///< the block that was found last
};

} // namespace ardiphon
