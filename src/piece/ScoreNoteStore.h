#pragma once

#include <QtGlobal>

#include <array>
#include <bit>
#include <memory>
#include <vector>

namespace ardiphon {

/// A note as it is kept: 20 bytes, so that a score of a million lines stays small.
class StoredNote
{
public:
    StoredNote() = default;
    /// \a instrument is a number of the score as it is written, or the name of that index (from 0)
    /// and whether it is turned off. \a beats is kept to seven digits.
    static StoredNote ofNumber(double instrument, double start, double beats, int line);
    static StoredNote ofName(int name, bool turnsOff, double start, double beats, int line);

    double start() const { return std::bit_cast<double>(m_start); }
    double beats() const { return double(m_beats); }
    int line() const { return m_line; }
    /// The index of its name, or -1 where it has a number.
    int name() const;
    bool turnsOff() const;
    float number() const { return std::bit_cast<float>(m_instrument); }

    /// The compiler's order: by start, instrument and length. Those that are equal stay as they
    /// are.
    friend bool isBefore(const StoredNote &left, const StoredNote &right);
    /// The same, and then by line: the order of the notes of a section that is too long to keep
    /// equal ones as they are.
    friend bool operator<(const StoredNote &left, const StoredNote &right);

private:
    std::array<quint32, 2> m_start{};
    float m_beats = 0;
    qint32 m_line = 0;
    quint32 m_instrument = 0;
};

/// The notes of a score, section by section, each put in order when it is complete.
class ScoreNoteStore
{
public:
    void clear();
    /// Adds a note to the section that is being read.
    void append(const StoredNote &note);
    /// Ends that section: settle() is to be called until it gives true, before the next append().
    void endSection();
    /// Puts the notes of the section that ended in order, as far as \a steps go (the comparisons of
    /// a few notes each), which are taken off. Whether they are in order now. Takes n log n steps
    /// for n notes in whatever order, and none for notes that came in order.
    bool settle(qint64 &steps);

    /// All notes, those of the section that is being read among them.
    qsizetype count() const { return m_count; }
    /// \a index from 0 to count() - 1.
    const StoredNote &operator[](qsizetype index) const
    {
        return (*m_chunks[size_t(index) / ChunkSize])[size_t(index) % ChunkSize];
    }
    qsizetype bytes() const { return qsizetype(m_chunks.size() * sizeof(Chunk)); }

private:
    static constexpr size_t ChunkSize = 1024;
    using Chunk = std::array<StoredNote, ChunkSize>;

    /// Notes from first to last, which are yet to be put in order.
    struct Range
    {
        qsizetype first;
        qsizetype last;
    };
    /// A range that is being divided: those left of low are at most the pivot, those right of high
    /// at least.
    struct Division
    {
        Range range{0, -1};
        qsizetype low = 0;
        qsizetype high = -1;
        StoredNote pivot;
    };

    StoredNote &at(qsizetype index)
    {
        return (*m_chunks[size_t(index) / ChunkSize])[size_t(index) % ChunkSize];
    }
    void sortSmall(const Range &range);
    void beginDivision(const Range &range);
    bool divide(qint64 &steps);

    std::vector<std::unique_ptr<Chunk>> m_chunks;
    qsizetype m_count = 0;
    qsizetype m_sectionStart = 0;
    bool m_isInOrder = true; ///< the notes of the section so far
    std::vector<Range> m_ranges;
    Division m_division;
    bool m_isDividing = false;
    bool m_isDivided = false; ///< the section that is put in order
};

} // namespace ardiphon
