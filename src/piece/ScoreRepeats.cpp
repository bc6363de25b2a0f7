#include "piece/ScoreRepeats.h"

namespace ardiphon {

namespace {

constexpr qsizetype MostRecorded = 64'000'000;
constexpr qsizetype MostMarks = 100'000;
constexpr size_t MostRepeats = 32; ///< within each other
constexpr qint64 MostRepeated = 256'000'000;

} // namespace

void ScoreRepeats::mark(const QByteArray &name)
{
    if (isRepeating() || m_marks.contains(name))
        return; // the first one counts
    if (m_marks.size() < MostMarks)
        m_marks.insert(name, {m_text.size(), qsizetype(m_numbers.size())});
    else
        m_isTruncated = true;
}

void ScoreRepeats::record(QByteArrayView text, int number)
{
    if (m_marks.isEmpty() || isRepeating())
        return;
    if (m_text.size() + text.size() > MostRecorded) {
        m_isTruncated = true;
        return;
    }
    m_text.append(text).append('\n');
    m_numbers.push_back(number);
}

void ScoreRepeats::begin(const QByteArray &name)
{
    const auto mark = m_marks.constFind(name);
    if (mark == m_marks.cend())
        return;
    if (m_repeats.size() < MostRepeats)
        m_repeats.push_back(*mark);
    else
        m_isTruncated = true;
}

std::optional<ScoreRepeats::Line> ScoreRepeats::next()
{
    Mark &repeat = m_repeats.back();
    m_isTruncated = m_isTruncated || m_count > MostRepeated;
    if (repeat.at >= m_text.size() || m_count > MostRepeated)
        return std::nullopt;
    const qsizetype end = m_text.indexOf('\n', repeat.at);
    const Line line{QByteArrayView(m_text).sliced(repeat.at, end - repeat.at),
                    m_numbers[size_t(repeat.line)]};
    m_count += line.text.size() + 1;
    repeat.at = end + 1;
    ++repeat.line;
    return line;
}

qsizetype ScoreRepeats::bytes() const
{
    return m_text.capacity() + qsizetype(m_numbers.capacity() * sizeof(int));
}

} // namespace ardiphon
