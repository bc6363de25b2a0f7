#pragma once

#include <span>
#include <vector>

namespace ardiphon {

/// What the statement t of a section makes of its beats.
class ScoreTempo
{
public:
    /// A beat is a second.
    ScoreTempo() = default;
    /// \a fields are those of a statement t: a beat and the beats a minute from there on, again and
    /// again. Where they are not as they must be (the first beat is 0, none is before the last,
    /// each tempo is above 0, none is missing), a beat is a second.
    explicit ScoreTempo(std::span<const double> fields);

    bool isGiven() const { return !m_points.empty(); }

    /// The second at which \a beat is, both from the section's begin. Before it goes the first
    /// tempo.
    double seconds(double beat) const;
    /// The seconds that \a beats last from \a beat on; below 0 for a note that is held.
    double secondsOf(double beat, double beats) const;

private:
    struct Point
    {
        double beat;
        double second;
        double length; ///< of a beat, in seconds
        double growth; ///< of that length, from beat to beat
    };
    std::vector<Point> m_points;
};

} // namespace ardiphon
