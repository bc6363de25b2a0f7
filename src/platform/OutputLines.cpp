#include "platform/OutputLines.h"

#include <algorithm>

namespace ardiphon {

LineSplitter::LineSplitter(OutputChannel channel, qsizetype longestLine)
    : m_channel(channel), m_longest(std::max<qsizetype>(longestLine, 1))
{
}

void LineSplitter::add(QByteArrayView block)
{
    m_bytes.remove(0, m_start);
    m_searched -= m_start;
    m_start = 0;
    m_bytes.append(block);
}

std::optional<OutputLine> LineSplitter::next()
{
    const qsizetype end = m_bytes.indexOf('\n', m_searched);
    m_searched = end < 0 ? m_bytes.size() : end;
    const bool endsInTwo = end > m_start && m_bytes[end - 1] == '\r';
    const qsizetype length = m_searched - m_start - (endsInTwo ? 1 : 0);
    // A CR at the end may belong to a line end whose LF is still to come.
    if (length > m_longest + (end < 0 ? 1 : 0))
        return take(m_longest, 0);
    if (end < 0)
        return std::nullopt;
    m_searched = end + 1;
    return take(length, endsInTwo ? 2 : 1);
}

std::optional<OutputLine> LineSplitter::rest()
{
    const qsizetype length = m_bytes.size() - m_start;
    if (length == 0)
        return std::nullopt;
    return take(std::min(length, m_longest), 0);
}

OutputLine LineSplitter::take(qsizetype length, qsizetype lineEnd)
{
    const OutputLine line{m_channel, m_bytes.mid(m_start, length), lineEnd > 0};
    m_start += length + lineEnd;
    return line;
}

} // namespace ardiphon
