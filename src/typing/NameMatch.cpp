#include "typing/NameMatch.h"

#include <algorithm>
#include <array>

namespace ardiphon {

namespace {

constexpr int LongestTyped = 32;
constexpr int LongestName = 64;
constexpr int None = -1000;

// What a letter is worth.
constexpr int AtStart = 8;
constexpr int BesideTheLast = 6;
constexpr int AtTheFront = 4;
constexpr int SameCase = 1;

QChar lower(QChar c)
{
    return c.unicode() < 128 ? (c >= u'A' && c <= u'Z' ? QChar(c.unicode() + 32) : c)
                             : c.toCaseFolded();
}

bool isStart(QStringView name, qsizetype at, int prefix)
{
    if (at == 0 || at == prefix)
        return true;
    const QChar before = name[at - 1];
    const QChar here = name[at];
    if (!here.isLetterOrNumber())
        return false;
    return !before.isLetterOrNumber() || (here.isUpper() && !before.isUpper()) ||
           (here.isDigit() && !before.isDigit());
}

bool hasLetters(QStringView typed, QStringView name)
{
    qsizetype at = 0;
    for (const QChar c : typed) {
        while (at < name.size() && lower(name[at]) != lower(c))
            ++at;
        if (at++ >= name.size())
            return false;
    }
    return true;
}

/// Finds the places of the typed letters that are worth most.
class BestPlaces
{
public:
    BestPlaces(QStringView typed, QStringView name, int prefix)
        : m_typed(typed), m_name(name), m_prefix(prefix)
    {
    }

    int find()
    {
        for (qsizetype letter = 0; letter < m_typed.size(); ++letter)
            findLetter(letter);
        const auto &last = m_worth[size_t(m_typed.size() - 1)];
        const auto end = last.begin() + m_name.size();
        return *std::max_element(last.begin(), end);
    }

    void readInto(QVarLengthArray<int, 16> &letters) const
    {
        letters.resize(m_typed.size());
        const auto &last = m_worth[size_t(m_typed.size() - 1)];
        int at = int(std::max_element(last.begin(), last.begin() + m_name.size()) - last.begin());
        for (qsizetype letter = m_typed.size() - 1; letter >= 0; --letter) {
            letters[letter] = at;
            at = m_before[size_t(letter)][size_t(at)];
        }
    }

private:
    void findLetter(qsizetype letter)
    {
        auto &worth = m_worth[size_t(letter)];
        int best = letter == 0 ? 0 : None; // of the letter before, at any place so far
        int bestAt = -1;
        for (qsizetype at = 0; at < m_name.size(); ++at) {
            const size_t here = size_t(at);
            worth[here] = None;
            if (letter > 0 && at > 0) {
                const int before = m_worth[size_t(letter - 1)][here - 1];
                if (before > best) {
                    best = before;
                    bestAt = int(at - 1);
                }
            }
            if (lower(m_name[at]) != lower(m_typed[letter]) || best == None)
                continue;
            int from = best;
            int fromAt = bestAt;
            const int beside = letter > 0 && at > 0 ? m_worth[size_t(letter - 1)][here - 1] : None;
            if (beside != None && beside + BesideTheLast >= from) {
                from = beside + BesideTheLast;
                fromAt = int(at - 1);
            }
            worth[here] = from + (isStart(m_name, at, m_prefix) ? AtStart : 0) +
                          (at == 0 ? AtTheFront : 0) +
                          (m_name[at] == m_typed[letter] ? SameCase : 0);
            m_before[size_t(letter)][here] = qint8(fromAt);
        }
    }

    const QStringView m_typed;
    const QStringView m_name;
    const int m_prefix;
    std::array<std::array<int, LongestName>, LongestTyped> m_worth;
    std::array<std::array<qint8, LongestName>, LongestTyped> m_before;
};

MatchGrade gradeOf(QStringView typed, QStringView name, const QVarLengthArray<int, 16> &letters,
                   int prefix)
{
    if (typed == name)
        return MatchGrade::Exact;
    if (name.startsWith(typed, Qt::CaseInsensitive))
        return MatchGrade::Beginning;
    int before = -2;
    for (const int at : letters) {
        if (!isStart(name, at, prefix) && at != before + 1)
            return MatchGrade::Scattered;
        before = at;
    }
    return MatchGrade::Starts;
}

} // namespace

std::optional<NameMatch> matchName(QStringView typed, QStringView name, int prefix)
{
    NameMatch match;
    if (typed.isEmpty())
        return match;
    const QStringView looked = name.left(LongestName);
    if (typed.size() > LongestTyped || !hasLetters(typed, looked))
        return std::nullopt;
    BestPlaces places(typed, looked, prefix);
    match.score = places.find() - int(std::min<qsizetype>(name.size() - typed.size(), 40)) / 4;
    places.readInto(match.letters);
    match.grade = gradeOf(typed, name, match.letters, prefix);
    return match;
}

} // namespace ardiphon
