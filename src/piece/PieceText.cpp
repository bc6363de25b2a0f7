#include "piece/PieceText.h"

#include "piece/PieceTags.h"
#include "piece/PlainLine.h"
#include "piece/ScoreLandmarks.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int BlockLines = 64;         ///< of a block that is made
constexpr int LongestBlock = 128;      ///< before it is divided
constexpr int ShortestBlock = 16;      ///< before it is joined to the next
constexpr qsizetype BlockBytes = 8192; ///< read at once; the lines behind are another block

static_assert(int(LandmarkKind::BranchEnd) < 32);

} // namespace

PieceText::PieceText(DocumentRole role, const LineSource &lines, NameTable &names,
                     const IsOpcode &isOpcode)
    : m_role(role), m_lines(lines), m_names(names), m_isOpcode(isOpcode)
{
    change({1, 0, lines.lineCount()});
}

PieceState PieceText::initialState() const
{
    PieceState state;
    if (m_role != DocumentRole::Csd)
        state.section =
            m_role == DocumentRole::Score ? PieceSection::Score : PieceSection::Orchestra;
    return state;
}

// Following the edits.
// ------------------------------------------------------------------------------

void PieceText::change(const TextChange &change)
{
    const int line = std::clamp(change.line, 1, m_lineCount + 1);
    const int removed = std::clamp(change.linesRemoved, 0, m_lineCount + 1 - line);
    const Position position = positionOf(line);
    if (m_blocks.empty())
        m_blocks.emplace_back();
    removeLines(position, line, removed);
    addLines(position, std::max(0, change.linesAdded));
    m_lineCount += std::max(0, change.linesAdded) - removed;
}

void PieceText::removeLines(Position position, int line, int count)
{
    size_t block = position.block;
    int within = line - position.firstLine;
    while (count > 0) {
        const int here = std::min(count, m_blocks[block].lines - within);
        m_blocks[block].lines -= here;
        makeStale(block);
        count -= here;
        within = 0;
        ++block;
    }
    const auto isEmpty = [](const Block &other) { return other.lines == 0; };
    const auto begin = m_blocks.begin() + qsizetype(position.block) + 1;
    const auto end = m_blocks.begin() + qsizetype(std::max(block, position.block + 1));
    for (auto gone = begin; gone != end; ++gone) {
        if (isEmpty(*gone))
            countOpcodes(*gone, -1);
    }
    m_blocks.erase(std::remove_if(begin, end, isEmpty), end);
    m_last = position;
    m_firstStale = std::min(m_firstStale, m_blocks.size());
    m_endStale = std::min(m_endStale, m_blocks.size());
}

/// Into the block, which is divided where it becomes too long, or joined to the next where it is
/// short.
void PieceText::addLines(Position position, int count)
{
    Block &block = m_blocks[position.block];
    block.lines += count;
    makeStale(position.block);
    const auto next = m_blocks.begin() + qsizetype(position.block) + 1;
    if (block.lines < ShortestBlock && next != m_blocks.end() &&
        next->lines + block.lines <= LongestBlock) {
        block.lines += next->lines;
        countOpcodes(*next, -1);
        m_blocks.erase(next);
    } else if (block.lines > LongestBlock) {
        const int parts = (block.lines + BlockLines - 1) / BlockLines;
        const int rest = block.lines - (parts - 1) * BlockLines;
        block.lines = BlockLines;
        Block part;
        part.lines = BlockLines;
        m_blocks.insert(next, size_t(parts) - 1, part);
        m_blocks[position.block + size_t(parts) - 1].lines = rest;
        m_endStale += size_t(parts) - 1;
    }
}

/// Makes a block of its own, to be read, of what is behind so many lines of a block.
void PieceText::splitBehind(size_t block, int lines)
{
    Block rest;
    rest.lines = m_blocks[block].lines - lines;
    m_blocks[block].lines = lines;
    m_blocks.insert(m_blocks.begin() + qsizetype(block) + 1, std::move(rest));
    m_endStale = std::max(m_endStale, block + 1) + 1;
}

void PieceText::countOpcodes(const Block &block, int times)
{
    if ((block.kinds & kindsOf(LandmarkKind::Opcode)) == 0)
        return;
    for (const Landmark &mark : block.marks) {
        if (mark.kind == LandmarkKind::Opcode)
            m_opcodes.add(m_names[mark.name], times);
    }
}

void PieceText::makeStale(size_t block)
{
    m_blocks[block].isStale = true;
    m_firstStale = std::min(m_firstStale, block);
    m_endStale = std::max(m_endStale, block + 1);
}

PieceText::Position PieceText::positionOf(int line) const
{
    Position at = m_last.block < m_blocks.size() ? m_last : Position();
    if (line < at.firstLine / 2)
        at = Position();
    while (at.block > 0 && line < at.firstLine)
        at.firstLine -= m_blocks[--at.block].lines;
    while (at.block + 1 < m_blocks.size() && line >= at.firstLine + m_blocks[at.block].lines)
        at.firstLine += m_blocks[at.block++].lines;
    m_last = at;
    return at;
}

// Reading.
// ------------------------------------------------------------------------------------------

bool PieceText::readOn(QDeadlineTimer deadline)
{
    Position at;
    bool isPlaced = false;
    for (; m_firstStale < m_blocks.size(); ++m_firstStale) {
        const PieceState entry =
            m_firstStale == 0 ? initialState() : m_blocks[m_firstStale - 1].exit;
        if (!m_blocks[m_firstStale].isStale && m_blocks[m_firstStale].entry == entry) {
            if (m_firstStale >= m_endStale)
                break;
            if (isPlaced)
                at.firstLine += m_blocks[at.block++].lines;
            continue;
        }
        if (isPlaced && deadline.hasExpired()) {
            m_endStale = std::max(m_endStale, m_firstStale + 1);
            return false;
        }
        if (!isPlaced) {
            while (m_last.block > m_firstStale)
                m_last.firstLine -= m_blocks[--m_last.block].lines;
            while (m_last.block < m_firstStale)
                m_last.firstLine += m_blocks[m_last.block++].lines;
            at = m_last;
            isPlaced = true;
        }
        read(at);
        m_last = at;
        at.firstLine += m_blocks[at.block++].lines;
    }
    m_firstStale = m_blocks.size();
    m_endStale = 0;
    return true;
}

void PieceText::read(Position position)
{
    Block &block = m_blocks[position.block];
    block.entry = position.block == 0 ? initialState() : m_blocks[position.block - 1].exit;
    block.isStale = false;
    block.players = {};
    countOpcodes(block, -1);
    m_found.clear();
    LandmarkList marks(m_names, m_found);
    PieceState state = block.entry;
    qsizetype bytes = 0;
    int line = 0;
    for (; line < block.lines && bytes < BlockBytes; ++line) {
        const QByteArrayView text = m_lines.line(position.firstLine + line);
        marks.beginLine(line, text.first(std::min(text.size(), LongestLine)));
        bytes += marks.text().size();
        state = readBlockLine(marks, state, block.players);
    }
    block.exit = state;
    block.kinds = 0;
    for (const Landmark &mark : m_found)
        block.kinds |= kindsOf(mark.kind);
    if (block.marks.size() == m_found.size())
        std::copy(m_found.begin(), m_found.end(), block.marks.begin());
    else
        block.marks = std::vector<Landmark>(m_found.begin(), m_found.end());
    countOpcodes(block, 1);
    if (line < block.lines)
        splitBehind(position.block, line);
}

PieceState PieceText::readBlockLine(LandmarkList &marks, PieceState state,
                                    ScorePlayers &players) const
{
    if (m_role == DocumentRole::Csd) {
        if (const std::optional<PieceTag> tag = pieceTag(marks.text())) {
            marks.add(tag->ends ? LandmarkKind::SectionEnd : LandmarkKind::SectionBegin, tag->start,
                      tag->length, int(tag->section));
            marks.beginBody();
            players.end();
            state = PieceState();
            state.section = tag->section;
            return state;
        }
    }
    if (state.section == PieceSection::Orchestra)
        readOrchestraLine(marks, state, m_isOpcode);
    else if (state.section == PieceSection::Score)
        readScoreLandmarks(marks, state, players);
    else if (isPlain(state.section))
        state.code = behindPlainLine(marks.text(), state.code);
    return state;
}

// Asking.
// -------------------------------------------------------------------------------------------

void PieceText::visit(int first, int last, const std::function<bool(PlacedLandmark)> &visit) const
{
    this->visit(first, last, AllLandmarks, visit);
}

void PieceText::visit(int first, int last, LandmarkKinds kinds,
                      const std::function<bool(PlacedLandmark)> &visit) const
{
    for (Position at = positionOf(first); at.block < m_blocks.size() && at.firstLine <= last;
         at.firstLine += m_blocks[at.block++].lines) {
        if ((m_blocks[at.block].kinds & kinds) == 0)
            continue;
        for (const Landmark &mark : m_blocks[at.block].marks) {
            const int line = at.firstLine + mark.line;
            if (line >= first && line <= last && (kindsOf(mark.kind) & kinds) != 0 &&
                !visit({line, &mark}))
                return;
        }
    }
}

void PieceText::visitBack(int first, const std::function<bool(PlacedLandmark)> &visit) const
{
    for (Position at = positionOf(first);; at.firstLine -= m_blocks[--at.block].lines) {
        const std::vector<Landmark> &marks = m_blocks[at.block].marks;
        for (auto mark = marks.rbegin(); mark != marks.rend(); ++mark) {
            const int line = at.firstLine + mark->line;
            if (line <= first && !visit({line, &*mark}))
                return;
        }
        if (at.block == 0)
            return;
    }
}

void PieceText::visitKind(LandmarkKind kind, const std::function<bool(PlacedLandmark)> &visit) const
{
    int firstLine = 1;
    for (const Block &block : m_blocks) {
        for (const Landmark &mark : block.marks) {
            if ((block.kinds & kindsOf(kind)) == 0)
                break;
            if (mark.kind == kind && !visit({firstLine + mark.line, &mark}))
                return;
        }
        firstLine += block.lines;
    }
}

PieceState PieceText::stateAt(int line) const
{
    line = std::clamp(line, 1, std::max(1, std::min(m_lineCount, m_lines.lineCount())));
    const Position position = positionOf(line);
    PieceState state = m_blocks[position.block].entry;
    if (position.block > 0 && m_firstStale >= position.block)
        state = m_blocks[position.block - 1].exit;
    else if (position.block == 0)
        state = initialState();
    std::vector<Landmark> found;
    LandmarkList marks(m_names, found);
    ScorePlayers players;
    for (int above = position.firstLine; above < line; ++above) {
        const QByteArrayView text = m_lines.line(above);
        marks.beginLine(above - position.firstLine, text.first(std::min(text.size(), LongestLine)));
        state = readBlockLine(marks, state, players);
    }
    return state;
}

void PieceText::visitPlayed(QByteArrayView name, int from,
                            const std::function<bool(int first, int last)> &visit) const
{
    const quint64 bit = ScorePlayers::bitOf(name);
    Position at = positionOf(from);
    quint64 carried = carriedInto(at);
    for (; at.block < m_blocks.size(); at.firstLine += m_blocks[at.block++].lines) {
        const Block &block = m_blocks[at.block];
        const quint64 played = block.players.named | (block.players.carryFirst ? carried : 0);
        if ((played & bit) != 0 &&
            !visit(std::max(from, at.firstLine), at.firstLine + block.lines - 1))
            return;
        if (!block.players.isLastAbove)
            carried = block.players.last;
    }
}

/// What carried lines at the begin of a block play, as bits.
quint64 PieceText::carriedInto(Position position) const
{
    size_t block = position.block;
    while (block > 0 && m_blocks[block - 1].players.isLastAbove)
        --block;
    return block > 0 ? m_blocks[block - 1].players.last : 0;
}

int PieceText::lineCarriedAt(int line) const
{
    Position at = positionOf(std::clamp(line, 1, std::max(1, m_lineCount)));
    for (int end = line;; end = at.firstLine + m_blocks[at.block].lines) {
        if (const int found = lastOwnPlay(at, end); found >= 0)
            return found;
        do {
            if (at.block == 0)
                return 0;
            at.firstLine -= m_blocks[--at.block].lines;
        } while (m_blocks[at.block].players.isLastAbove);
    }
}

/// The last line of a block before line \a end that leaves an instrument of its own to be carried;
/// 0 where nothing can be carried there, -1 where it is left to the lines above.
int PieceText::lastOwnPlay(Position position, int end) const
{
    PieceState state = stateAt(position.firstLine);
    std::vector<Landmark> found;
    LandmarkList marks(m_names, found);
    int last = -1;
    for (int line = position.firstLine; line < end; ++line) {
        const QByteArrayView text = m_lines.line(line);
        marks.beginLine(line - position.firstLine, text.first(std::min(text.size(), LongestLine)));
        ScorePlayers players;
        state = readBlockLine(marks, state, players);
        if (!players.isLastAbove)
            last = players.last != 0 ? line : 0;
    }
    return last;
}

qsizetype PieceText::memory() const
{
    qsizetype bytes = qsizetype(m_blocks.capacity() * sizeof(Block));
    for (const Block &block : m_blocks)
        bytes += qsizetype(block.marks.capacity() * sizeof(Landmark));
    return bytes;
}

} // namespace ardiphon
