#include "language/editor/ChangeRecorder.h"

#include <utility>

namespace ardiphon {

void ChangeRecorder::aboutToChange(qsizetype at, qsizetype removed)
{
    close();
    const int first = m_text.lineOf(at);
    const int last = removed > 0 ? m_text.lineOf(at + removed) : first;
    m_open = {first, last - first + 1, m_text.lineCount()};
}

void ChangeRecorder::documentReplaced()
{
    if (!isPending())
        m_change = TextChange{1, 1, 1};
}

/// Where a CR and an LF become one line end, fewer lines may be left than were touched, even none.
void ChangeRecorder::close()
{
    if (!m_open)
        return;
    const auto [line, touched, before] = *std::exchange(m_open, std::nullopt);
    const TextChange change{line, touched, touched + m_text.lineCount() - before};
    if (m_change)
        m_change->join(change);
    else
        m_change = change;
}

std::optional<TextChange> ChangeRecorder::take()
{
    close();
    if (m_change)
        ++m_taken;
    return std::exchange(m_change, std::nullopt);
}

} // namespace ardiphon
