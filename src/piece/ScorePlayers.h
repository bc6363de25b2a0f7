#pragma once

#include "piece/ScoreStatement.h"

namespace ardiphon {

/// The instruments that lines of a score play, as a bit for each; several may have the same one.
struct ScorePlayers
{
    quint64 named = 0;       ///< by the lines themselves; all bits where one has to be worked out
    bool carryFirst = false; ///< lines before the first of those play what the lines above leave
    quint64 last = 0;        ///< what a carried line below plays; 0 where nothing can be carried
    bool isLastAbove = true; ///< it is not these lines that leave it, but those above

    static quint64 bitOf(QByteArrayView nameOrNumber);

    /// Adds a line, of which \a statement was read.
    void add(const ScoreStatement &statement, QByteArrayView line);
    /// Behind them nothing is left to be carried.
    void end();
};

/// What a line of a score has to do with the instrument that the lines below carry.
enum class ScorePlay : quint8 {
    None,    ///< nothing
    Own,     ///< it plays one of its own
    Carried, ///< it plays that of the line above
    Ends,    ///< it leaves nothing to be carried
};

/// As the compiler reads it: a note carries from a note, unless another statement came between.
ScorePlay scorePlayOf(const ScoreStatement &statement, QByteArrayView line);
/// Whether the lines below carry what the line plays.
bool leavesPlayer(const ScoreStatement &statement);

} // namespace ardiphon
