#include "language/TextSearch.h"

#include "language/Utf8.h"

#include <QChar>

#include <algorithm>
#include <cstring>

namespace ardiphon {

namespace {

char32_t fold(char32_t c)
{
    if (c < 128)
        return c >= U'A' && c <= U'Z' ? c + 32 : c;
    return QChar::toCaseFolded(c);
}

bool isWordCharacter(char32_t c) { return c == U'_' || QChar::isLetterOrNumber(c); }

// As characterAt, but any line end is one U+000A.
Utf8Character unitAt(QByteArrayView text, qsizetype at)
{
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte != '\r')
        return byte < 128 ? Utf8Character{byte, 1} : characterAt(text, at);
    const bool pair = at + 1 < text.size() && text[at + 1] == '\n';
    return {U'\n', pair ? 2 : 1};
}

// Whether a match may start at that byte: not inside a character, nor inside a line end.
bool isUnitStart(QByteArrayView text, qsizetype at)
{
    if (at == 0)
        return true;
    if (text[at] == '\n')
        return text[at - 1] != '\r';
    return (static_cast<unsigned char>(text[at]) & 0xC0) != 0x80;
}

} // namespace

TextSearch::TextSearch(const QString &textToFind, bool wholeWord) : m_wholeWord(wholeWord)
{
    const QByteArray utf8 = textToFind.toUtf8();
    for (qsizetype at = 0; at < utf8.size();) {
        const Utf8Character unit = unitAt(utf8, at);
        m_find.push_back(fold(unit.code));
        at += unit.length;
    }
    if (m_find.empty())
        return;
    const char32_t first = m_find.front();
    for (unsigned byte = 0; byte < 128; ++byte)
        m_firstBytes[byte] = fold(byte) == first || (byte == '\r' && first == U'\n');
    // Characters above 127 may fold to a letter below it, as the Kelvin sign does to k.
    for (unsigned byte = 128; byte < 256; ++byte)
        m_firstBytes[byte] = first >= 128 || QChar::isLetter(first);
    if (std::count(m_firstBytes.begin(), m_firstBytes.end(), true) == 1)
        m_onlyFirstByte = char(first);
}

std::optional<TextRange> TextSearch::matchAt(QByteArrayView text, qsizetype at) const
{
    if (!isUnitStart(text, at))
        return std::nullopt;
    qsizetype end = at;
    for (const char32_t wanted : m_find) {
        if (end >= text.size())
            return std::nullopt;
        const Utf8Character unit = unitAt(text, end);
        if (fold(unit.code) != wanted)
            return std::nullopt;
        end += unit.length;
    }
    const TextRange match{at, end};
    if (m_wholeWord && !isWholeWord(text, match))
        return std::nullopt;
    return match;
}

bool TextSearch::isWholeWord(QByteArrayView text, TextRange match) const
{
    if (isWordCharacter(m_find.front()) && match.start > 0) {
        const qsizetype before = characterBefore(text, match.start);
        if (isWordCharacter(characterAt(text, before).code))
            return false;
    }
    return !isWordCharacter(m_find.back()) || match.end >= text.size() ||
           !isWordCharacter(characterAt(text, match.end).code);
}

std::optional<TextRange> TextSearch::forward(QByteArrayView text, qsizetype from) const
{
    if (m_find.empty())
        return std::nullopt;
    for (qsizetype at = nextCandidate(text, std::max<qsizetype>(from, 0)); at < text.size();
         at = nextCandidate(text, at + 1)) {
        if (const auto match = matchAt(text, at))
            return match;
    }
    return std::nullopt;
}

/// The first place from \a from on where a match may begin, or the end of the text.
qsizetype TextSearch::nextCandidate(QByteArrayView text, qsizetype from) const
{
    if (m_onlyFirstByte && from < text.size()) {
        const void *found =
            std::memchr(text.data() + from, *m_onlyFirstByte, std::size_t(text.size() - from));
        return found ? static_cast<const char *>(found) - text.data() : text.size();
    }
    while (from < text.size() && !m_firstBytes[static_cast<unsigned char>(text[from])])
        ++from;
    return from;
}

std::optional<TextRange> TextSearch::backward(QByteArrayView text, qsizetype before) const
{
    if (m_find.empty())
        return std::nullopt;
    for (qsizetype at = std::min(before, text.size()) - 1; at >= 0; --at) {
        if (!m_firstBytes[static_cast<unsigned char>(text[at])])
            continue;
        const auto match = matchAt(text, at);
        if (match && match->end <= before)
            return match;
    }
    return std::nullopt;
}

} // namespace ardiphon
