#include "piece/ScoreNoteStore.h"

#include <algorithm>
#include <cmath>

namespace ardiphon {

namespace {

// An instrument is the bits of its number. A name is a number that is none: these bits with its
// index, and one bit more where it is turned off.
constexpr quint32 NameBits = 0x7fc00000;
constexpr quint32 OffBit = 0x80000000;
constexpr quint32 IndexBits = 0x003fffff;

/// Whole numbers count, and names as the compiler orders those that no orchestra has.
int rank(const StoredNote &note)
{
    if (note.name() >= 0)
        return note.turnsOff() ? 1 : -1;
    return int(std::clamp(note.number(), -2e9F, 2e9F));
}

} // namespace

StoredNote StoredNote::ofNumber(double instrument, double start, double beats, int line)
{
    StoredNote note;
    note.m_start = std::bit_cast<std::array<quint32, 2>>(start);
    note.m_beats = float(beats);
    note.m_line = line;
    note.m_instrument =
        std::bit_cast<quint32>(std::isfinite(instrument) ? float(instrument) : 0.0F);
    return note;
}

StoredNote StoredNote::ofName(int name, bool turnsOff, double start, double beats, int line)
{
    StoredNote note = ofNumber(0, start, beats, line);
    note.m_instrument = NameBits | (quint32(name) & IndexBits) | (turnsOff ? OffBit : 0);
    return note;
}

int StoredNote::name() const
{
    return (m_instrument & NameBits) == NameBits ? int(m_instrument & IndexBits) : -1;
}

bool StoredNote::turnsOff() const { return (m_instrument & OffBit) != 0; }

bool isBefore(const StoredNote &left, const StoredNote &right)
{
    if (left.start() != right.start())
        return left.start() < right.start();
    if (left.m_instrument != right.m_instrument)
        if (const int l = rank(left), r = rank(right); l != r)
            return l < r;
    return left.m_beats < right.m_beats;
}

bool operator<(const StoredNote &left, const StoredNote &right)
{
    return isBefore(left, right) || (!isBefore(right, left) && left.m_line < right.m_line);
}

void ScoreNoteStore::clear() { *this = ScoreNoteStore(); }

void ScoreNoteStore::append(const StoredNote &note)
{
    if (size_t(m_count) == m_chunks.size() * ChunkSize)
        m_chunks.push_back(std::make_unique_for_overwrite<Chunk>());
    m_isInOrder = m_isInOrder && (m_count == m_sectionStart || !isBefore(note, at(m_count - 1)));
    at(m_count++) = note;
}

void ScoreNoteStore::endSection()
{
    if (!m_isInOrder)
        m_ranges.push_back({m_sectionStart, m_count - 1});
    m_isDivided = false;
    m_sectionStart = m_count;
    m_isInOrder = true;
}

bool ScoreNoteStore::settle(qint64 &steps)
{
    constexpr qsizetype Small = 512;
    while (steps > 0) {
        if (m_isDividing) {
            m_isDividing = !divide(steps);
            continue;
        }
        if (m_ranges.empty())
            return true;
        const Range range = m_ranges.back();
        m_ranges.pop_back();
        if (range.last - range.first < Small) {
            sortSmall(range);
            steps -= range.last - range.first + 1;
        } else {
            beginDivision(range);
        }
    }
    return m_ranges.empty() && !m_isDividing;
}

/// Notes that are in several chunks are sorted beside them.
void ScoreNoteStore::sortSmall(const Range &range)
{
    std::vector<StoredNote> notes;
    notes.reserve(size_t(range.last - range.first + 1));
    for (qsizetype i = range.first; i <= range.last; ++i)
        notes.push_back(at(i));
    if (m_isDivided)
        std::sort(notes.begin(), notes.end());
    else
        std::stable_sort(notes.begin(), notes.end(), isBefore);
    for (qsizetype i = range.first; i <= range.last; ++i)
        at(i) = notes[size_t(i - range.first)];
}

void ScoreNoteStore::beginDivision(const Range &range)
{
    // Nine notes from all of the range: the one in the middle is near that of the whole, also in
    // notes that are a few sorted lists one after the other.
    std::array<StoredNote, 9> some;
    for (size_t i = 0; i < some.size(); ++i)
        some[i] = at(range.first + (range.last - range.first) * qsizetype(2 * i + 1) / 18);
    std::nth_element(some.begin(), some.begin() + 4, some.end());
    m_division = {range, range.first, range.last, some[4]};
    m_isDividing = true;
    m_isDivided = true;
}

/// Whether it is divided.
bool ScoreNoteStore::divide(qint64 &steps)
{
    Division &d = m_division;
    // Each round moves low and high over the notes that are where they belong, and exchanges two
    // that are not. A note of the range stops each of them, the pivot or one that was exchanged.
    constexpr int MostMoves = 64;
    while (d.low <= d.high) {
        if (steps <= 0)
            return false;
        --steps;
        int moves = MostMoves;
        for (; moves > 0 && at(d.low) < d.pivot; --moves)
            ++d.low;
        for (; moves > 0 && d.pivot < at(d.high); --moves)
            --d.high;
        if (moves == 0 || d.low > d.high)
            continue;
        std::swap(at(d.low), at(d.high));
        ++d.low;
        --d.high;
    }
    m_ranges.push_back({d.range.first, d.high});
    m_ranges.push_back({d.low, d.range.last});
    return true;
}

} // namespace ardiphon
