#include "check/ProblemList.h"

#include <algorithm>
#include <tuple>

namespace ardiphon {

namespace {

std::tuple<int, int, int> orderOf(DocumentRole role, int line, int column)
{
    return {int(role), line, column};
}

std::tuple<int, int, int> orderOf(const PiecePlace &place)
{
    return orderOf(place.role, place.line, place.column);
}

/// How many characters are the same from the beginning on.
qsizetype sameStart(const QString &one, const QString &other)
{
    const auto at = std::mismatch(one.begin(), one.end(), other.begin(), other.end());
    return at.first - one.begin();
}

/// How many are the same back from the end, of those behind \a start.
qsizetype sameEnd(const QString &one, const QString &other, qsizetype start)
{
    qsizetype length = 0;
    const qsizetype most = std::min(one.size(), other.size()) - start;
    while (length < most && one[one.size() - 1 - length] == other[other.size() - 1 - length])
        ++length;
    return length;
}

/// A part of \a before, moved to where its letters are in \a now; what is changed within it belongs
/// to it.
void followText(PiecePlace &place, const QString &before, const QString &now)
{
    const qsizetype start = sameStart(before, now);
    const qsizetype end = before.size() - sameEnd(before, now, start);
    const qsizetype grown = now.size() - before.size();
    const int placeEnd = place.column + place.length;
    if (placeEnd <= start)
        return;
    if (place.column >= end) {
        place.column += int(grown);
    } else {
        const qsizetype first = std::min<qsizetype>(place.column, start);
        const qsizetype last = std::max<qsizetype>(placeEnd, end) + grown;
        place.column = int(first);
        place.length = int(std::max<qsizetype>(last - first, 0));
    }
}

} // namespace

void ProblemList::set(const QList<Problem> &problems, const LineOf &lineOf)
{
    m_problems = problems;
    std::stable_sort(m_problems.begin(), m_problems.end(),
                     [](const Problem &one, const Problem &other) {
                         return orderOf(one.place) < orderOf(other.place);
                     });
    m_lines.clear();
    for (const Problem &problem : std::as_const(m_problems))
        m_lines.append(lineOf(problem.place.role, problem.place.line));
}

void ProblemList::change(DocumentRole role, const TextChange &change, const LineOf &lineOf)
{
    if (change.linesRemoved == 1 && change.linesAdded == 1) {
        followLine(role, change.line, lineOf(role, change.line));
        return;
    }
    forgetLines(role, change);
}

void ProblemList::forgetLines(DocumentRole role, const TextChange &change)
{
    for (qsizetype i = m_problems.size() - 1; i >= 0; --i) {
        PiecePlace &place = m_problems[i].place;
        if (place.role != role || place.line < change.line)
            continue;
        if (place.line < change.line + change.linesRemoved) {
            m_problems.removeAt(i);
            m_lines.removeAt(i);
        } else {
            place.line += change.linesAdded - change.linesRemoved;
            for (ProblemFix &fix : m_problems[i].fixes)
                fix.place.line = place.line;
        }
    }
}

void ProblemList::followLine(DocumentRole role, int line, const QString &text)
{
    for (qsizetype i = 0; i < m_problems.size(); ++i) {
        PiecePlace &place = m_problems[i].place;
        if (place.role != role || place.line != line)
            continue;
        followText(place, m_lines[i], text);
        for (ProblemFix &fix : m_problems[i].fixes)
            followText(fix.place, m_lines[i], text);
        m_lines[i] = text;
    }
}

QList<Problem> ProblemList::in(DocumentRole role, LineRun lines) const
{
    QList<Problem> found;
    for (const Problem &problem : m_problems) {
        if (problem.place.role == role && lines.contains(problem.place.line))
            found.append(problem);
    }
    return found;
}

QList<Problem> ProblemList::at(DocumentRole role, int line, int column) const
{
    QList<Problem> found;
    for (const Problem &problem : in(role, {line, line})) {
        const int start = problem.place.column;
        if (column >= start && column < start + std::max(problem.place.length, 1))
            found.append(problem);
    }
    return found;
}

QList<TextSpan> ProblemList::spans(DocumentRole role, LineRun lines, Severity severity) const
{
    QList<TextSpan> spans;
    for (const Problem &problem : in(role, lines)) {
        if (problem.severity == severity)
            spans.append({problem.place.line, problem.place.column, problem.place.length});
    }
    return spans;
}

std::optional<Severity> ProblemList::worstIn(DocumentRole role, int line) const
{
    std::optional<Severity> worst;
    for (const Problem &problem : in(role, {line, line})) {
        if (!worst || problem.severity < *worst)
            worst = problem.severity;
    }
    return worst;
}

int ProblemList::next(DocumentRole role, int line, int column) const
{
    const auto found = std::find_if(m_problems.begin(), m_problems.end(), [&](const auto &each) {
        return orderOf(each.place) > orderOf(role, line, column);
    });
    if (m_problems.isEmpty())
        return -1;
    return found == m_problems.end() ? 0 : int(found - m_problems.begin());
}

int ProblemList::previous(DocumentRole role, int line, int column) const
{
    const auto found = std::find_if(m_problems.rbegin(), m_problems.rend(), [&](const auto &each) {
        return orderOf(each.place) < orderOf(role, line, column);
    });
    if (m_problems.isEmpty())
        return -1;
    return found == m_problems.rend() ? int(m_problems.size()) - 1
                                      : int(m_problems.rend() - found) - 1;
}

} // namespace ardiphon
