#include "language/editor/LineStates.h"

#include <algorithm>
#include <utility>

namespace ardiphon {

namespace {

constexpr qsizetype CheckpointDistance = 1 << 14;

} // namespace

void LineStates::aboutToChange(qsizetype at, qsizetype removed)
{
    const qsizetype size = m_text.size();
    // What is changed, or before it, has no place any more that could be told from the text's end.
    while (!m_behind.empty() && size - m_behind.front().offset <= at + removed)
        m_behind.pop_front();
    // Checkpoints that were read since tell nothing of those that were not.
    if (m_checkpoints.back().offset > at)
        m_behind.clear();
    while (m_checkpoints.back().offset > at) {
        const Checkpoint last = m_checkpoints.back();
        m_checkpoints.pop_back();
        if (last.offset > at + removed)
            m_behind.push_front({size - last.offset, last.state});
    }
}

LineStates::Checkpoint LineStates::before(qsizetype offset)
{
    while (offset - m_checkpoints.back().offset > CheckpointDistance) {
        const Checkpoint last = m_checkpoints.back();
        qsizetype next = nextPlace(last.offset + CheckpointDistance);
        const bool isKnown = !m_behind.empty() && m_text.size() - m_behind.front().offset <= next;
        if (isKnown)
            next = m_text.size() - m_behind.front().offset;
        if (next > offset)
            break;
        m_checkpoints.push_back({next, stateInside(m_text.bytes(last.offset, next), last.state)});
        if (isKnown)
            takeBack();
    }
    const auto behind = std::upper_bound(
        m_checkpoints.begin(), m_checkpoints.end(), offset,
        [](qsizetype at, const Checkpoint &checkpoint) { return at < checkpoint.offset; });
    return *std::prev(behind);
}

/// The last checkpoint stands where the first one behind the change does. Where it is as that was,
/// so are all.
void LineStates::takeBack()
{
    const bool isSame = m_behind.front().state == m_checkpoints.back().state;
    m_behind.pop_front();
    if (!isSame)
        return;
    for (const Checkpoint &known : std::exchange(m_behind, {}))
        m_checkpoints.push_back({m_text.size() - known.offset, known.state});
}

// The next line's start, or a place inside a very long line.
qsizetype LineStates::nextPlace(qsizetype from) const
{
    const int line = m_text.lineOf(from);
    const qsizetype end = m_text.lineEnd(line);
    if (end - from < CheckpointDistance)
        return m_text.lineStart(line + 1);
    return from + boundaryInside(m_text.bytes(from, end), 1);
}

LineState LineStates::at(int line)
{
    const qsizetype wanted = m_text.lineStart(line);
    const Checkpoint known = before(wanted);
    return stateBehind(m_text.bytes(known.offset, wanted), known.state);
}

} // namespace ardiphon
