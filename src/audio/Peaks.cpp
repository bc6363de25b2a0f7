#include "audio/Peaks.h"

#include <algorithm>

namespace ardiphon {

void Peak::include(float sample)
{
    low = std::min(low, sample);
    high = std::max(high, sample);
}

void Peak::include(const Peak &other)
{
    low = std::min(low, other.low);
    high = std::max(high, other.high);
}

Peaks::Peaks(int channels, qint64 frames, int columns)
    : m_channels(channels),
      m_frames(frames),
      m_columns(static_cast<int>(std::min<qint64>(frames, columns))),
      m_peaks(std::size_t(m_columns) * channels)
{
}

qint64 Peaks::firstFrame(int column) const
{
    // In two steps, as the product could be too large.
    return m_frames / m_columns * column + m_frames % m_columns * column / m_columns;
}

Peak Peaks::over(int first, int last, int channel) const
{
    Peak peak = at(first, channel);
    for (int column = first + 1; column < last; ++column)
        peak.include(at(column, channel));
    return peak;
}

} // namespace ardiphon
