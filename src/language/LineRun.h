#pragma once

namespace ardiphon {

/// The lines \a first to \a last, counted from 1; none when \a last is before \a first.
struct LineRun
{
    int first = 1;
    int last = 0;

    bool isEmpty() const { return last < first; }
    bool contains(int line) const { return line >= first && line <= last; }
    friend bool operator==(const LineRun &, const LineRun &) = default;
};

} // namespace ardiphon
