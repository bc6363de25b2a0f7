#pragma once

#include <QtGlobal>

#include <vector>

namespace ardiphon {

/// The lowest and the highest sample of a piece of one channel, between -1 and 1.
struct Peak
{
    float low = 0;
    float high = 0;

    void include(float sample);
    void include(const Peak &other);
    bool operator==(const Peak &) const = default;
};

/// The outline of a sound: its time is cut into columns of equal length, each with one peak a
/// channel. Memory depends on the number of columns alone.
class Peaks
{
public:
    Peaks() = default;
    /// No more columns than \a columns, and none without a frame.
    Peaks(int channels, qint64 frames, int columns);

    int channels() const { return m_channels; }
    int columns() const { return m_columns; }
    /// Where a column begins; for one behind the last, where the sound ends.
    qint64 firstFrame(int column) const;

    Peak &at(int column, int channel) { return m_peaks[indexOf(column, channel)]; }
    const Peak &at(int column, int channel) const { return m_peaks[indexOf(column, channel)]; }
    /// Over the columns from \a first up to, but without, \a last; at least one is taken.
    Peak over(int first, int last, int channel) const;

private:
    std::size_t indexOf(int column, int channel) const
    {
        return std::size_t(column) * m_channels + channel;
    }

    int m_channels = 0;
    qint64 m_frames = 0;
    int m_columns = 0;
    std::vector<Peak> m_peaks;
};

} // namespace ardiphon
