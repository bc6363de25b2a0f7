#pragma once

#include <QByteArrayView>
#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace ardiphon {

/// A range of UTF-8 text, in bytes.
struct TextRange
{
    qsizetype start = 0;
    qsizetype end = 0;
    friend bool operator==(const TextRange &, const TextRange &) = default;
};

/// Searches UTF-8 text without regard to case. A line end in the text to find matches any of CR LF,
/// LF and CR. With `wholeWord` a match that begins or ends with a word character (a letter, a digit
/// or `_`) may have no other one next to it there.
class TextSearch
{
public:
    /// An empty \a textToFind never matches.
    TextSearch(const QString &textToFind, bool wholeWord);

    /// The first match that starts at byte \a from or behind it.
    std::optional<TextRange> forward(QByteArrayView text, qsizetype from) const;
    /// The last match that ends at byte \a before or ahead of it.
    std::optional<TextRange> backward(QByteArrayView text, qsizetype before) const;

private:
    qsizetype nextCandidate(QByteArrayView text, qsizetype from) const;
    std::optional<TextRange> matchAt(QByteArrayView text, qsizetype at) const;
    bool isWholeWord(QByteArrayView text, TextRange match) const;

    std::vector<char32_t> m_find; ///< folded; a line end is one U+000A
    bool m_wholeWord;
    std::array<bool, 256> m_firstBytes{}; ///< the bytes with which a match may begin
    std::optional<char> m_onlyFirstByte;  ///< where there is only one
};

} // namespace ardiphon
