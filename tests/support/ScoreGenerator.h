#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QRandomGenerator>

/// Makes scores by a seed, of all statements and of everything that moves a note: carried fields,
/// expressions, macros, loops, repeats, marks, tempo, comments and lines that go on.
///
/// It keeps to what the compiler does on purpose. It avoids, as the compiler takes whatever lies in
/// its memory then: fields that are missing with nothing to carry (also in f, a and q, and in an i
/// whose instrument is carried from another statement), q or a half of t without a number, a single
/// y in a section; as it crashes: too few arguments, a macro or an #undef of what is unknown, a
/// comment with a # in a macro, an s in a macro, b and v without a number; as it stops: errors in
/// expressions, counts that are no number; as it loops or loses notes: a mark repeated within
/// itself, a loop without its end, a repeat within a repeat, the end of a repeat behind a comment;
/// as it finds no number: times below 0 with a tempo.
class ScoreGenerator
{
public:
    explicit ScoreGenerator(quint32 seed) : m_random(seed) {}

    QByteArrayList score();

    /// The file that it may include, by the name "part.sco".
    static QByteArray includedPart()
    {
        return "; a part\ni 1 2.5 1 440\n$NOTE(3'$TWO)\ni 2 ^+1 .5\n";
    }

private:
    int below(int count) { return int(m_random.bounded(count)); }
    bool isOneIn(int count) { return below(count) == 0; }
    template <typename... Texts>
    QByteArray oneOf(const Texts &...texts)
    {
        const QByteArray all[] = {QByteArray(texts)...};
        return all[below(int(sizeof...(texts)))];
    }

    void add(const QByteArray &line);
    void addMacros();
    void addSection();
    void addRepeatedSection();
    void addStart();
    void addStatements(int count, int depth);
    void addStatement(int depth);
    void addNote();
    void addCall();
    void addLoop(int depth);
    void addBranch(int depth);
    void addOther();
    void addTempo();
    void addSectionEnd(bool isLast);
    QByteArray instrument();
    QByteArray start();
    QByteArray duration();
    QByteArray moreFields();
    QByteArray number(int most);
    QByteArray expression(int depth);
    QByteArray field(const QByteArray &value);
    QByteArray blank();

    QRandomGenerator m_random;
    QByteArrayList m_lines;
    QByteArrayList m_counters; ///< the macros of the loops that are open
    QByteArrayList m_marks;
    bool m_hasNames = false;    ///< among the instruments
    bool m_hasTempo = false;    ///< so that no note may begin before 0
    bool m_isAfterNote = false; ///< so that an instrument may be carried
    bool m_isAfterName = false; ///< that note is of a named one
    int m_serial = 0;
};
