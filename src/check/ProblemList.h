#pragma once

#include "check/Problem.h"
#include "language/LineRun.h"
#include "language/TextChange.h"
#include "language/TextSpan.h"

#include <functional>

namespace ardiphon {

/// The problems of a piece, which keep their places in the text while it changes until the next
/// check has looked at it.
class ProblemList
{
public:
    /// Gives the characters of a line as it is now.
    using LineOf = std::function<QString(DocumentRole role, int line)>;

    /// Takes the place of what was there before; they are put in the order of their places, those
    /// of an orchestra before those of its score.
    void set(const QList<Problem> &problems, const LineOf &lineOf);
    /// Lines of the text of that role have changed: what was in them is gone, what is below moves.
    /// In a single line that is changed the places move with their letters.
    void change(DocumentRole role, const TextChange &change, const LineOf &lineOf);

    const QList<Problem> &problems() const { return m_problems; }
    /// Those in these lines.
    QList<Problem> in(DocumentRole role, LineRun lines) const;
    /// Those that a character is in, or that are at it and have none.
    QList<Problem> at(DocumentRole role, int line, int column) const;
    /// What is to be marked in these lines for problems of that severity.
    QList<TextSpan> spans(DocumentRole role, LineRun lines, Severity severity) const;
    /// The worst in a line; none where there is no problem.
    std::optional<Severity> worstIn(DocumentRole role, int line) const;
    /// The next one behind a place, or before it; from the end it goes on at the beginning. -1
    /// where there are none.
    int next(DocumentRole role, int line, int column) const;
    int previous(DocumentRole role, int line, int column) const;

private:
    void forgetLines(DocumentRole role, const TextChange &change);
    void followLine(DocumentRole role, int line, const QString &text);

    QList<Problem> m_problems;
    QList<QString> m_lines; ///< that of each problem, as it was when its place was last right
};

} // namespace ardiphon
