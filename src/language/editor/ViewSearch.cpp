#include "language/editor/ViewSearch.h"

#include <algorithm>

namespace ardiphon {

void ViewSearch::setFindText(const QString &text)
{
    if (text == m_findText)
        return;
    m_findText = text;
    m_search = TextSearch(m_findText, m_wholeWord);
}

void ViewSearch::setDirection(int direction)
{
    if (direction >= 0 && direction <= 2)
        m_direction = direction;
}

void ViewSearch::setWholeWord(bool wholeWord)
{
    if (wholeWord == m_wholeWord)
        return;
    m_wholeWord = wholeWord;
    m_search = TextSearch(m_findText, m_wholeWord);
}

std::optional<TextRange> ViewSearch::find(TextRange from) const
{
    if (m_direction == 0)
        return m_search.backward(m_text.bytes(0, m_text.size()), from.start);
    const auto found = findBetween(from.end, m_text.size());
    return found || m_direction == 1 ? found : findBetween(0, from.end);
}

// The first match that begins at \a from or after it, and before \a to. Reads no more of the text
// than that: reading all of it would close the buffer's gap, which after each replacement takes
// time in proportion to the text. What seems to match at \a to or after it may be cut off, so it
// does not count.
std::optional<TextRange> ViewSearch::findBetween(qsizetype from, qsizetype to) const
{
    constexpr qsizetype longestCharacter = 4; // the ones before and after a match decide too
    const qsizetype longestMatch = m_findText.size() * longestCharacter;
    const qsizetype start = std::max<qsizetype>(from - longestCharacter, 0);
    const qsizetype end = std::min(to + longestMatch + longestCharacter, m_text.size());
    const auto found = m_search.forward(m_text.bytes(start, end), from - start);
    if (!found || start + found->start >= to)
        return std::nullopt;
    return TextRange{start + found->start, start + found->end};
}

std::vector<TextRange> ViewSearch::findAll() const
{
    std::vector<TextRange> matches;
    const QByteArrayView bytes = m_text.bytes(0, m_text.size());
    for (auto match = m_search.forward(bytes, 0); match;
         match = m_search.forward(bytes, match->end))
        matches.push_back(*match);
    return matches;
}

void ViewSearch::replace(const std::vector<TextRange> &matches)
{
    const QByteArray replacement = m_replaceText.toUtf8();
    const EditStep step(m_view);
    const qsizetype size = m_text.size();
    for (const TextRange &match : matches) {
        const qsizetype moved = m_text.size() - size;
        m_text.replace({match.start + moved, match.end + moved}, replacement);
    }
}

} // namespace ardiphon
