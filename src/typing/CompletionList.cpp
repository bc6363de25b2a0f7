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
    m_shown.resize(m_all.size());
    std::iota(m_shown.begin(), m_shown.end(), 0);
    sort();
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
        candidate.fit += (wasScattered ? ScatteredCost : 0) - (isScattered ? ScatteredCost : 0);
        candidate.grade = match->grade;
        candidate.score = match->score;
        return false;
    };
    m_shown.removeIf(isOut);
    sort();
}

/// Of many only the first are put in order; the others when one of them is asked for.
void CompletionList::sort()
{
    m_sorted = std::min(int(m_shown.size()), FirstRows);
    std::partial_sort(m_shown.begin(), m_shown.begin() + m_sorted, m_shown.end(), inOrder());
}

const Completion &CompletionList::at(int row) const
{
    if (row >= m_sorted) {
        std::sort(m_shown.begin() + m_sorted, m_shown.end(), inOrder());
        m_sorted = int(m_shown.size());
    }
    return m_all[m_shown[row]];
}

CompletionText textOf(const Completion &of, OpcodeSignatures &opcodes)
{
    if (of.where != nullptr)
        return {formOfLine(*of.where, of.line), of.sentence};
    if (of.record == 0)
        return {of.form, of.sentence};
    const KnownOpcode &known = opcodes.of(of.record);
    return {known.parameters, known.sentence};
}

} // namespace ardiphon
