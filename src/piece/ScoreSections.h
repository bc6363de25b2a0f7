#pragma once

#include "piece/ScoreNoteStore.h"
#include "piece/ScoreRepeats.h"
#include "piece/ScoreTempo.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QByteArrayView>
#include <QHash>

#include <utility>
#include <vector>

namespace ardiphon {

/// The second pass over a score: from its lines without macros and loops to the notes of each
/// section, with what is carried from statement to statement worked out.
class ScoreSections
{
public:
    /// A section that has a statement at least.
    struct Section
    {
        int line = 1;         ///< of its first statement
        int firstNote = 0;    ///< in the store
        int tempo = -1;       ///< the index of its tempo; -1 where a beat is a second
        bool isPlayed = true; ///< not behind the end of the piece
    };

    /// More notes than anybody hears.
    static constexpr qsizetype MostNotes = 4'000'000;

    explicit ScoreSections(ScoreNoteStore &notes) : m_notes(&notes) {}

    void restart();
    /// Reads \a text, a line of ScoreText that begins on \a line of the source.
    void readLine(QByteArrayView text, int line);
    /// Whether a marked part is to be repeated before the next line: repeatLine() reads one of it.
    bool isRepeating() const { return m_repeats.isRepeating(); }
    void repeatLine();
    /// To be called after the last line.
    void finish();

    /// Whether a section just ended, whose notes are to be put in order. True once for each.
    bool takeSectionEnd() { return std::exchange(m_hasSectionEnded, false); }

    const std::vector<Section> &sections() const { return m_sections; }
    /// Where the notes of the sections that ended end in the store.
    qsizetype endOfSections() const { return m_sectionNote; }
    const ScoreTempo &tempo(int index) const { return m_tempos[size_t(index)]; }
    const QByteArray &name(int index) const { return m_names[index]; }
    /// Whether there are more notes, names, marks or repeats than are kept.
    bool isTruncated() const { return m_isTruncated || m_repeats.isTruncated(); }
    /// How many bytes are held besides the notes.
    qsizetype bytes() const;

private:
    /// The instrument of a statement: its number, or its name.
    struct Player
    {
        double number = 0;
        int name = -1;
        bool turnsOff = false;
        qint64 key() const; ///< the same for those that carry from each other
    };
    /// What a note leaves to the next.
    struct Carried
    {
        Player player;
        double start = 0;
        double beats = 0;
        bool isAfterLast = false; ///< by a +, which is carried itself
    };
    /// The last note of an instrument, and the one before.
    struct LastNotes
    {
        Carried note;
        Carried before;
        bool hasBefore = false;
    };
    /// A statement whose fields may go on on the next line.
    struct Statement
    {
        char letter = 0;
        int line = 1;
        int fields = 0;
        Carried note;
        bool hasStart = false;
        bool hasBeats = false;
        bool wasRead = false; ///< as far as anything counts
    };

    void readStatement(QByteArrayView text, qsizetype at, int line);
    void readFields(QByteArrayView text, qsizetype at);
    void readField(QByteArrayView text, qsizetype &at);
    void readTempoFields(QByteArrayView text, qsizetype at);
    void readPlayer(QByteArrayView text, qsizetype &at);
    void readName(QByteArrayView text, qsizetype &at);
    void readStart(QByteArrayView token);
    void readBeats(QByteArrayView token);
    double beatsOf(double value) const;
    double clockValue(QByteArrayView text, qsizetype at, double none) const;
    void finishStatement();
    void finishNote(char letter);
    void countStatement(int line);
    void endSection(bool isEnd);
    int nameIndex(QByteArrayView name);

    ScoreNoteStore *m_notes;
    std::vector<Section> m_sections;
    std::vector<ScoreTempo> m_tempos;
    QByteArrayList m_names;
    QHash<QByteArray, int> m_nameIndices;

    // The section that is being read.
    Statement m_statement;
    QHash<qint64, LastNotes> m_carried;
    Player m_lastPlayer;
    bool m_followsNote = false; ///< so that an instrument may be carried
    double m_lastStart = -1;    ///< of the statement before, for ^; below 0 where there is none
    double m_warp = 1;
    double m_clock = 0;
    std::vector<double> m_tempoFields;
    bool m_hasStatements = false;
    int m_sectionLine = 1;
    int m_sectionNote = 0;
    bool m_isSkipping = false;
    bool m_isPlayed = true;
    bool m_hasSectionEnded = false;

    ScoreRepeats m_repeats;
    bool m_isTruncated = false;
};

} // namespace ardiphon
