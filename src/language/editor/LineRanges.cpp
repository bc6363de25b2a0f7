#include "language/editor/LineRanges.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr qsizetype LongestRead = 1 << 16;

} // namespace

void LineRanges::begin(int first)
{
    m_long.clear();
    m_reader = m_colors ? m_colors(first) : nullptr;
}

ColoredRanges LineRanges::read(int line, qsizetype length)
{
    const qsizetype start = m_text.lineStart(line);
    const qsizetype end = m_text.lineEnd(line);
    // A copy, as the reader may read this text elsewhere.
    const QByteArray text = m_text.bytes(start, std::min(end, start + LongestRead)).toByteArray();
    const ColoredRanges ranges = m_reader(line, text);
    if (end - start > length)
        m_long.insert(line, ranges);
    return ranges;
}

} // namespace ardiphon
