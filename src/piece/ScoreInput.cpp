#include "piece/ScoreInput.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr size_t MostTexts = 64; ///< within each other

} // namespace

void ScoreInput::restart()
{
    m_texts.clear();
    m_serial = 0;
    m_count = 0;
    goToLine(1);
}

void ScoreInput::refresh()
{
    if (m_line <= m_lines.lineCount())
        m_source = m_lines.line(m_line);
    m_at = std::min(m_at, m_source.size());
}

void ScoreInput::goToLine(int line)
{
    m_line = line;
    m_at = 0;
    m_source = line <= m_lines.lineCount() ? m_lines.line(line) : QByteArrayView();
}

int ScoreInput::get()
{
    const int c = peek();
    if (c == End)
        return End;
    ++m_count;
    if (!m_texts.empty())
        ++m_texts.back().at;
    else if (m_at < m_source.size())
        ++m_at;
    else
        goToLine(m_line + 1);
    return c;
}

int ScoreInput::peek()
{
    while (!m_texts.empty() && m_texts.back().at >= m_texts.back().text.size())
        m_texts.pop_back();
    if (m_texts.empty() && m_at >= m_source.size())
        return m_line <= m_lines.lineCount() ? '\n' : End;
    return peekHere();
}

int ScoreInput::peekHere() const
{
    if (!m_texts.empty()) {
        const Text &text = m_texts.back();
        return text.at < text.text.size() ? quint8(text.text.at(text.at)) : End;
    }
    return m_at < m_source.size() ? quint8(m_source[m_at]) : End;
}

QByteArrayView ScoreInput::rest() const
{
    if (m_texts.empty())
        return m_source.sliced(m_at);
    const QByteArrayView text = QByteArrayView(m_texts.back().text).sliced(m_texts.back().at);
    const qsizetype end = text.indexOf('\n');
    return end < 0 ? text : text.first(end);
}

void ScoreInput::skip(qsizetype count)
{
    m_count += count;
    (m_texts.empty() ? m_at : m_texts.back().at) += count;
}

void ScoreInput::skipBlanks()
{
    for (int c = peek(); c == ' ' || c == '\t' || c == '\r'; c = peek())
        get();
}

void ScoreInput::skipLine()
{
    for (int c = peek(); c != '\n' && c != End; c = peek())
        skip(rest().size());
}

bool ScoreInput::put(const QByteArray &text, int macro, const QByteArrayList &arguments)
{
    if (m_texts.size() >= MostTexts)
        return false;
    m_texts.push_back({text, 0, ++m_serial, macro, arguments});
    return true;
}

QByteArray ScoreInput::argument(int macro, int index) const
{
    const auto text = std::find_if(m_texts.rbegin(), m_texts.rend(),
                                   [=](const Text &candidate) { return candidate.macro == macro; });
    return text == m_texts.rend() ? QByteArray() : text->arguments.value(index);
}

ScoreInput::Place ScoreInput::place() const
{
    if (m_texts.empty())
        return {0, m_line, m_at};
    return {m_texts.back().serial, m_line, m_texts.back().at};
}

qint64 ScoreInput::placeNumber() const
{
    const Place here = place();
    const qint64 depth = qint64(m_texts.size());
    return (((qint64(here.line) << 6) + depth) << 24) + (here.at & 0xffffff);
}

bool ScoreInput::goBackTo(const Place &place)
{
    const auto text = std::find_if(m_texts.begin(), m_texts.end(), [&](const Text &candidate) {
        return candidate.serial == place.serial;
    });
    if (place.serial != 0 && text == m_texts.end())
        return false;
    while (!m_texts.empty() && m_texts.back().serial != place.serial)
        m_texts.pop_back();
    if (!m_texts.empty()) {
        m_texts.back().at = place.at;
        return true;
    }
    goToLine(place.line);
    m_at = std::min(place.at, m_source.size());
    return true;
}

} // namespace ardiphon
