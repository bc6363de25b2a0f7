#pragma once

#include <QString>

#include <cstdint>

namespace ardiphon {

/// The numbers in the header of a RIFF wave file, unchanged.
struct WaveFormatRecord
{
    std::int32_t AvgBytesPerSec = 0;
    std::int32_t Reserved1 = 0; ///< always 0
    std::int32_t SampleRate = 0;
    std::int16_t Bits = 0; ///< per sample
    std::int16_t BlockAlign = 0;
    std::int16_t Channels = 0;
    std::int16_t FormatTag = 0;
    std::uint8_t Reserved2 = 0;  ///< always 0
    std::uint8_t Reserved3 = 0;  ///< always 0
    std::int32_t DataSize = 0;   ///< as given in the "data" chunk
    std::int16_t HeaderSize = 0; ///< bytes before the samples

    bool operator==(const WaveFormatRecord &) const = default;
};

/// Reads the header of the file at \a path. A file that is not a wave file, has no "data" chunk, or
/// has its samples after byte 32,767 gives a record of zeros, which is the only sign of failure.
WaveFormatRecord ReadWaveFormat(const QString &path);

/// The same for a file's first bytes; only 32,767 of them are read.
WaveFormatRecord parseWaveFormat(QByteArrayView header);

} // namespace ardiphon
