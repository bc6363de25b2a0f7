#include "compile/PrintedLog.h"

namespace ardiphon {

PrintedLog::PrintedLog(const LogPortion &portion) : m_portion(portion) {}

void PrintedLog::add(const OutputLine &line)
{
    const QByteArray bytes = line.isComplete ? line.bytes + '\n' : line.bytes;
    if (addToHead(bytes))
        return;
    m_tail.push_back(bytes);
    m_tailBytes += bytes.size();
    dropFromTail();
}

bool PrintedLog::addToHead(const QByteArray &line)
{
    m_headIsFull = m_headIsFull || m_headLines == m_portion.lines ||
                   m_head.size() + line.size() > m_portion.bytes;
    if (m_headIsFull)
        return false;
    m_head.append(line);
    ++m_headLines;
    return true;
}

void PrintedLog::dropFromTail()
{
    while (m_tail.size() > 1 &&
           (m_tailBytes > m_portion.bytes || qint64(m_tail.size()) > m_portion.lines)) {
        m_tailBytes -= m_tail.front().size();
        m_dropped += m_tail.front().size();
        m_tail.pop_front();
    }
}

QString PrintedLog::text() const
{
    QByteArray tail;
    tail.reserve(m_tailBytes);
    for (const QByteArray &line : m_tail)
        tail.append(line);
    if (m_dropped == 0)
        return cleanLog(m_head + tail);
    return cleanLog(m_head) + logGapText(m_dropped) + cleanLog(tail);
}

} // namespace ardiphon
