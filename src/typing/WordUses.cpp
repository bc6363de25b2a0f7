#include "typing/WordUses.h"

#include <QHash>

#include <algorithm>
#include <array>

namespace ardiphon {

namespace {

constexpr int LinesAround = 1000;
constexpr qsizetype LongestCounted = 4096;

bool isOfWord(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// Counts the words of some lines that are among those wanted.
class WordCounter
{
public:
    explicit WordCounter(const QList<Completion> &names)
    {
        m_counts.reserve(names.size());
        for (const Completion &name : names) {
            const QByteArray word = name.name.toUtf8();
            if (word.isEmpty())
                continue;
            m_counts.insert(word, 0);
            m_firsts[static_cast<unsigned char>(word[0])] = true;
        }
    }

    void read(QByteArrayView line)
    {
        for (qsizetype at = 0; at < line.size();) {
            if (!isOfWord(line[at])) {
                ++at;
                continue;
            }
            const qsizetype start = at;
            while (at < line.size() && isOfWord(line[at]))
                ++at;
            if (m_firsts[static_cast<unsigned char>(line[start])])
                count(line.sliced(start, at - start));
        }
    }

    bool isAny() const { return m_isAny; }
    int of(const QString &name) const { return m_counts.value(name.toUtf8()); }

private:
    void count(QByteArrayView word)
    {
        const auto found = m_counts.find(QByteArray::fromRawData(word.data(), word.size()));
        if (found == m_counts.end())
            return;
        ++*found;
        m_isAny = true;
    }

    QHash<QByteArray, int> m_counts;
    std::array<bool, 256> m_firsts{};
    bool m_isAny = false; ///< was found at all
};

} // namespace

void countUses(const PieceText &text, int line, QList<Completion> &names)
{
    WordCounter counter(names);
    const int last = std::min(text.lineCount(), line + LinesAround);
    for (int at = std::max(1, line - LinesAround); at <= last; ++at) {
        const QByteArrayView bytes = text.line(at);
        if (at != line) // what is being typed is not used yet
            counter.read(bytes.first(std::min(bytes.size(), LongestCounted)));
    }
    if (counter.isAny()) {
        for (Completion &name : names)
            name.uses = counter.of(name.name);
    }
}

} // namespace ardiphon
