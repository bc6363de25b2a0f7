#pragma once

#include "piece/ScorePreprocessor.h"

#include <optional>
#include <vector>

namespace ardiphon {

/// The text of a score after its first pass: macros and files are put in, loops and repeated
/// sections written out, comments and the ends of continued lines gone. Given line by line.
class ScoreText
{
public:
    enum class Step {
        Line,    ///< line() is the next one
        Pending, ///< it is not complete yet: go on
        End,     ///< there is no more
    };

    /// \a lines are to be read, and stay where they are. Without \a includes there are no files.
    ScoreText(const LineSource &lines, ScoreIncludes includes);
    ScoreText(const ScoreText &) = delete;
    ScoreText &operator=(const ScoreText &) = delete;

    void restart();
    /// Reads on, for no longer than a few usual lines take.
    Step next();
    /// Valid until the next call.
    QByteArrayView line() const { return m_line; }
    /// The line of the source that it begins on, from 1.
    int number() const { return m_number; }
    /// How many characters were read.
    qint64 count() const { return m_input.count(); }
    /// Whether text was left out: a macro calls itself, a file includes itself, too many are
    /// defined, or far too much would come of it.
    bool isTruncated() const { return m_isTruncated || m_preprocessor.isTruncated(); }

private:
    struct Loop
    {
        ScoreInput::Place body;
        QByteArray name; ///< of the macro that counts its turns
        int count = 1;
        int turn = 0;
    };

    bool readWholeLine();
    Step readStep();
    Step readCode();
    Step readInString(int c);
    void putRun();
    Step finishLine();
    void put(int c);
    void readComment();
    bool readBackslash();
    void beginRepeat();
    Step endRepeat();
    void beginLoop();
    void endLoop();
    bool turn(Loop &loop);
    int readCount();
    void expand();
    void giveUp();

    ScoreInput m_input;
    ScorePreprocessor m_preprocessor;
    bool m_isInComment = false;
    std::vector<Loop> m_loops;
    std::optional<Loop> m_repeat;

    QByteArray m_built; ///< the line so far, where it is not one of the source as it stands
    QByteArrayView m_line;
    int m_number = 1;
    bool m_isBehindLine = false; ///< whose end is yet to be passed
    bool m_isAtStart = true;     ///< of a line, but for blanks
    bool m_isInString = false;
    bool m_isTruncated = false;
    bool m_isAtEnd = false;
};

} // namespace ardiphon
