#pragma once

namespace ardiphon {

/// What an edit did to the lines of a text. `linesRemoved` lines from `line` on are no longer
/// there, and `linesAdded` lines are in their place: these are to be read again. Every other line
/// is the same; those that follow have moved by `linesAdded - linesRemoved`.
struct TextChange
{
    int line = 1; ///< the first line that changed, from 1
    int linesRemoved = 0;
    int linesAdded = 0;

    /// Adds \a next, which happened after this change, so that this is both in one, for a follower
    /// that reads the lines only after several changes. What is between the two counts as changed.
    void join(const TextChange &next);

    friend bool operator==(const TextChange &, const TextChange &) = default;
};

} // namespace ardiphon
