#pragma once

#include "language/LineSource.h"
#include "piece/ScoreText.h"

#include <QByteArrayView>
#include <QDeadlineTimer>

#include <memory>

namespace ardiphon {

/// A note of a score, as the compiler's sort gives it. Times count from the begin of its section.
struct ScoreNote
{
    int line = 1; ///< of the statement that it is from (of a macro or a file: where it is called)
    int section = 0; ///< from 0
    double number =
        0; ///< the instrument as it is written, with sign and fraction; 0 where it is named
    QByteArrayView name;   ///< its name, without fraction; valid as long as the notes are
    bool turnsOff = false; ///< the instrument: what has a sign
    double startBeats = 0;
    double durationBeats = 0; ///< below 0: held
    double startSeconds = 0;
    double durationSeconds = 0;
};

/// A section of a score that has a statement at least. An s without one ends none.
struct ScoreSection
{
    int line = 1; ///< of its first statement
    qsizetype firstNote = 0;
    qsizetype noteCount = 0;
    bool isPlayed = true; ///< not behind an e, which ends the piece
};

/// The notes of a score: macros, loops, repeats and carried fields worked out, sorted by time
/// within each section, with tempo. Reads a few lines at a time, whenever there is time for it, and
/// takes bytes of any kind: what is wrong or half typed is read as well as can be.
///
/// As the compiler does: a random ~ in an expression counts as a half, a field that is missing or
/// no number and has none to carry as 0, the instruments of different names as different ones,
/// before those with numbers.
class ScoreNotes
{
public:
    /// \a lines are the score's, and stay where they are. \a includes reads the files that it
    /// includes; without it they are empty.
    explicit ScoreNotes(const LineSource &lines, ScoreIncludes includes = {});
    ~ScoreNotes();
    ScoreNotes(const ScoreNotes &) = delete;
    ScoreNotes &operator=(const ScoreNotes &) = delete;

    /// Forgets all notes and begins again: to be called after each edit of the lines.
    void restart();
    /// Reads about \a lines lines (1 at least), or does as much of other work. Whether there is
    /// more to do.
    bool readOn(int lines);
    /// Reads until \a deadline. Whether there is more to do.
    bool readOn(QDeadlineTimer deadline);
    bool isComplete() const;
    /// Whether notes are left out: there are more than 4,000,000, or they are behind a macro that
    /// calls itself, a file that includes itself or loops without an end.
    bool isTruncated() const;

    /// The notes of the sections that are complete, in order.
    qsizetype count() const;
    /// \a index from 0 to count() - 1.
    ScoreNote note(qsizetype index) const;

    /// The sections that are complete.
    int sectionCount() const;
    /// \a index from 0 to sectionCount() - 1.
    ScoreSection section(int index) const;

    /// How many bytes are held.
    qsizetype bytes() const;

private:
    struct Reading;
    const std::unique_ptr<Reading> m_reading;
};

} // namespace ardiphon
