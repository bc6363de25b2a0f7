#pragma once

#include "typing/Completion.h"

#include <QList>
#include <QSet>

#include <utility>

namespace ardiphon {

/// The suggestions that have the typed letters in their names, as they are found; each name once.
class CandidateList
{
public:
    explicit CandidateList(QString typed) : m_typed(std::move(typed)) { m_found.reserve(512); }

    const QString &typed() const { return m_typed; }
    /// How what is typed is in the name of a suggestion; none where that is there already.
    std::optional<NameMatch> match(const Completion &candidate) const
    {
        auto match = matchName(m_typed, candidate.name, candidate.prefix);
        if (match && m_names.contains(candidate.name))
            match.reset();
        return match;
    }

    /// Adds a suggestion with its match.
    void add(Completion candidate, const NameMatch &match)
    {
        candidate.grade = match.grade;
        candidate.score = match.score;
        if (!m_typed.isEmpty() && match.grade == MatchGrade::Scattered)
            candidate.fit -= ScatteredCost;
        candidate.order = int(m_found.size());
        m_names.insert(candidate.name);
        m_found.append(std::move(candidate));
    }
    /// The same if it has one.
    void add(Completion candidate)
    {
        if (const auto found = match(candidate))
            add(std::move(candidate), *found);
    }

    /// Adds one that has nothing to do with what is typed.
    void append(Completion candidate) { m_found.append(std::move(candidate)); }

    QList<Completion> take() { return std::move(m_found); }

private:
    const QString m_typed;
    QList<Completion> m_found;
    QSet<QString> m_names;
};

} // namespace ardiphon
