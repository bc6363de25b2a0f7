#include "piece/ScoreTempo.h"

#include <algorithm>
#include <cmath>

namespace ardiphon {

namespace {

bool isTempo(std::span<const double> fields)
{
    if (fields.size() < 2 || fields.size() % 2 != 0 || fields[0] != 0)
        return false;
    for (size_t i = 0; i < fields.size(); i += 2)
        if (!(fields[i + 1] > 0) || (i > 0 && !(fields[i] >= fields[i - 2])))
            return false;
    return true;
}

} // namespace

ScoreTempo::ScoreTempo(std::span<const double> fields)
{
    if (!isTempo(fields))
        return;
    for (size_t i = 0; i < fields.size(); i += 2) {
        const double beat = fields[i];
        const double length = 60 / fields[i + 1];
        double second = 0;
        if (!m_points.empty()) {
            // The length of a beat goes evenly from one point to the next.
            Point &last = m_points.back();
            const double beats = beat - last.beat;
            last.growth = beats > 0 ? (length - last.length) / beats : 0;
            second = last.second + beats * (last.length + length) / 2;
        }
        m_points.push_back({beat, second, length, 0});
    }
}

double ScoreTempo::seconds(double beat) const
{
    if (m_points.empty())
        return beat;
    auto point = std::upper_bound(m_points.begin(), m_points.end(), beat,
                                  [](double value, const Point &p) { return value < p.beat; });
    if (point == m_points.begin())
        return beat * point->length;
    --point;
    const double beats = beat - point->beat;
    return point->second + beats * (point->length + point->growth * beats / 2);
}

double ScoreTempo::secondsOf(double beat, double beats) const
{
    if (m_points.empty())
        return beats;
    return std::copysign(seconds(beat + std::abs(beats)) - seconds(beat), beats);
}

} // namespace ardiphon
