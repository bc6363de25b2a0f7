#include "typing/CompletionList.h"

#include "typing/Candidates.h"
#include "typing/WordUses.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace ardiphon {

CompletionList::CompletionList(const CompletionSources &sources, CompletionPlace place,
                               CompletionReason reason, const QString &behind)
    : m_place(std::move(place)), m_typed(m_place.typed)
{
    m_all = candidatesAt(sources, m_place, reason, behind);
    if (const PieceText *const text = sources.piece.text(m_place.role))
        countUses(*text, m_place.line, m_all);
    std::sort(m_all.begin(), m_all.end(), isBetter);
    m_shown.resize(m_all.size());
    std::iota(m_shown.begin(), m_shown.end(), 0);
}

void CompletionList::narrow(const QString &typed)
{
    // A word that has become longer has no more matches than it had.
    const bool isLonger = typed.startsWith(m_typed);
    m_typed = typed;
    if (!isLonger) {
        m_shown.resize(m_all.size());
        std::iota(m_shown.begin(), m_shown.end(), 0);
    }
    const auto isOut = [&](int index) {
        Completion &candidate = m_all[index];
        if (candidate.isAppended)
            return m_typed != m_place.typed;
        const auto match = matchName(m_typed, candidate.name, candidate.prefix);
        if (!match)
            return true;
        const bool wasScattered = candidate.grade == MatchGrade::Scattered;
        const bool isScattered = match->grade == MatchGrade::Scattered;
        candidate.fit += (wasScattered ? 2 : 0) - (isScattered ? 2 : 0);
        candidate.grade = match->grade;
        candidate.score = match->score;
        return false;
    };
    m_shown.removeIf(isOut);
    std::sort(m_shown.begin(), m_shown.end(),
              [this](int a, int b) { return isBetter(m_all[a], m_all[b]); });
}

CompletionText textOf(const Completion &of, OpcodeSignatures &opcodes)
{
    if (of.record == 0)
        return {of.form, of.sentence};
    const KnownOpcode &known = opcodes.of(of.record);
    return {known.parameters, known.sentence};
}

} // namespace ardiphon
