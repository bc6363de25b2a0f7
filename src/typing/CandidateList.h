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
    explicit CandidateList(QString typed) : m_typed(std::move(typed)) {}

    const QString &typed() const { return m_typed; }
    bool has(const QString &name) const { return m_names.contains(name); }

    /// Adds a suggestion if what is typed is in its name. A name that is there already stays as it
    /// is.
    void add(Completion candidate)
    {
        const auto match = matchName(m_typed, candidate.name, candidate.prefix);
        if (!match || m_names.contains(candidate.name))
            return;
        candidate.grade = match->grade;
        candidate.score = match->score;
        // Letters that are only somewhere in a name were rarely meant for it.
        if (!m_typed.isEmpty() && match->grade == MatchGrade::Scattered)
            candidate.fit -= 2;
        candidate.order = int(m_found.size());
        m_names.insert(candidate.name);
        m_found.append(std::move(candidate));
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
