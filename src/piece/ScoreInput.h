#pragma once

#include "language/LineSource.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QByteArrayView>

#include <vector>

namespace ardiphon {

/// The characters of a score, from its lines and from the texts that are put in between: those of
/// macros and of files.
class ScoreInput
{
public:
    static constexpr int End = -1; ///< in place of a character, where there is no more

    /// Where a loop goes back to.
    struct Place
    {
        qint64 serial = 0; ///< of the text that is read; 0 for the lines
        int line = 1;
        qsizetype at = 0;
    };

    /// \a lines are to be read.
    explicit ScoreInput(const LineSource &lines) : m_lines(lines) {}

    void restart();
    /// To be called before others, since the lines may have been asked for elsewhere.
    void refresh();

    /// The next character, '\n' at the end of a line.
    int get();
    /// What get() would give. Leaves the texts that are read to their end.
    int peek();
    /// The same, but End at the end of a text that was put in.
    int peekHere() const;
    /// The characters before the end of the line, or of the text that was put in.
    QByteArrayView rest() const;
    /// Passes over \a count of rest().
    void skip(qsizetype count);
    void skipBlanks();
    /// To the end of the line, which comes next then.
    void skipLine();

    /// Puts \a text in: that of a file, or of the macro of number \a macro, called with
    /// \a arguments. Gives false, and does nothing, where there are too many within each other.
    bool put(const QByteArray &text, int macro = 0, const QByteArrayList &arguments = {});
    /// What the innermost text of \a macro was given as its argument \a index; empty where it is
    /// not read, or was given fewer.
    QByteArray argument(int macro, int index) const;

    /// Whether the beginning of a line of the source comes next.
    bool isAtLine() const { return m_texts.empty() && m_at == 0 && m_line <= m_lines.lineCount(); }
    /// The line of the source that is read, from 1.
    int line() const { return m_line; }
    /// How many characters were read so far.
    qint64 count() const { return m_count; }

    Place place() const;
    /// A number for place(), which another place hardly has.
    qint64 placeNumber() const;
    /// Gives false, and does nothing, where the text of that place is left.
    bool goBackTo(const Place &place);

private:
    struct Text
    {
        QByteArray text;
        qsizetype at = 0;
        qint64 serial = 0;
        int macro = 0;
        QByteArrayList arguments;
    };

    void goToLine(int line);

    const LineSource &m_lines;
    int m_line = 1;
    qsizetype m_at = 0;
    QByteArrayView m_source; ///< the line that is read
    std::vector<Text> m_texts;
    qint64 m_serial = 0;
    qint64 m_count = 0;
};

} // namespace ardiphon
