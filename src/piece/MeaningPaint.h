#pragma once

#include "piece/MeaningColours.h"

#include <algorithm>

namespace ardiphon {

/// The meanings of a line's bytes while the line is read. What is painted later covers what was
/// painted before.
class MeaningPaint
{
public:
    explicit MeaningPaint(QByteArrayView line) : m_line(line), m_painted(line.size(), Nothing) {}

    /// Takes bytes that the line has.
    void paint(qsizetype start, qsizetype length, Meaning meaning)
    {
        std::fill_n(m_painted.begin() + start, length, quint8(meaning));
    }
    bool isPainted(qsizetype at) const { return m_painted[at] != Nothing; }

    /// Neighbours of one meaning as one range. What was not painted is plain, or nothing where it
    /// is blank.
    MeaningRanges ranges() const
    {
        MeaningRanges found;
        for (qsizetype at = 0, end = 0; at < m_line.size(); at = end) {
            const quint8 meaning = meaningAt(at);
            for (end = at + 1; end < m_line.size() && meaningAt(end) == meaning;)
                ++end;
            if (meaning != Nothing)
                found.append({int(at), int(end - at), Meaning(meaning)});
        }
        return found;
    }

    static bool isBlank(char c) { return c == ' ' || (c >= 9 && c <= 13); }

private:
    static constexpr quint8 Nothing = 255;

    quint8 meaningAt(qsizetype at) const
    {
        return m_painted[at] == Nothing && !isBlank(m_line[at]) ? quint8(Meaning::Plain)
                                                                : m_painted[at];
    }

    const QByteArrayView m_line;
    QVarLengthArray<quint8, 512> m_painted;
};

} // namespace ardiphon
