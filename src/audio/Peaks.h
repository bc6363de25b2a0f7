#pragma once

#include <QtGlobal>

#include <vector>

namespace ardiphon {

/// The lowest and the highest sample in a part of one channel, between -1 and 1.
struct Peak
{
    float low = 0;
    float high = 0;

    void include(float sample);
    void include(const Peak &other);
    bool operator==(const Peak &) const = default;
};

/// The outline of a sound: its time is divided into columns of equal length, each with one peak for
/// each channel. Memory depends only on the number of columns.
class Peaks
{
public:
    Peaks() = default;
    /// Makes at most \a columns columns, and none without a frame.
    Peaks(int channels, qint64 frames, int columns);

    int channels() const { return m_channels; }
    int columns() const { return m_columns; }
    /// The first frame of a column; for one after the last, the end of the sound.
    qint64 firstFrame(int column) const;

    Peak &at(int column, int channel) { return m_peaks[indexOf(column, channel)]; }
    const Peak &at(int column, int channel) const { return m_peaks[indexOf(column, channel)]; }
    /// The peak over the columns from \a first up to, but not including, \a last; at least one is
    /// taken.
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
