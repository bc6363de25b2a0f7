#include "audio/ModuleWaveFormat.h"

#include "platform/RegularFile.h"

#include <QtEndian>

#include <limits>

namespace ardiphon {

namespace {

/// A header that does not end before this place is refused, so nothing after it is read.
constexpr qsizetype HeaderLimit = std::numeric_limits<std::int16_t>::max();

constexpr qsizetype FormatSizeAt = 16;
constexpr qsizetype FormatAt = 20;
constexpr qsizetype SmallestFormat = 16; ///< bytes of a format chunk
constexpr qsizetype ChunkHead = 8;       ///< a tag and a size

template <typename Number>
Number numberAt(QByteArrayView header, qsizetype at)
{
    return qFromLittleEndian<Number>(header.data() + at);
}

/// Where the head of the "data" chunk begins, or -1. Sizes are taken unchanged: the pad byte after
/// an odd chunk is not skipped, and a negative size skips nothing.
qsizetype findData(QByteArrayView header, qsizetype at)
{
    while (at <= header.size() - ChunkHead) {
        if (header.sliced(at, 4) == QByteArrayView("data"))
            return at;
        at += ChunkHead + qMax(0, numberAt<std::int32_t>(header, at + 4));
    }
    return -1;
}

} // namespace

WaveFormatRecord parseWaveFormat(QByteArrayView header)
{
    header = header.first(qMin(header.size(), HeaderLimit));
    if (header.size() < FormatAt + SmallestFormat || !header.startsWith("RIFF") ||
        header.sliced(8, 4) != QByteArrayView("WAVE"))
        return {};
    const auto formatSize = numberAt<std::int32_t>(header, FormatSizeAt);
    if (formatSize < SmallestFormat)
        return {};
    const qsizetype data = findData(header, FormatAt + formatSize);
    if (data < 0)
        return {};

    WaveFormatRecord record;
    record.FormatTag = numberAt<std::int16_t>(header, FormatAt);
    record.Channels = numberAt<std::int16_t>(header, FormatAt + 2);
    record.SampleRate = numberAt<std::int32_t>(header, FormatAt + 4);
    record.AvgBytesPerSec = numberAt<std::int32_t>(header, FormatAt + 8);
    record.BlockAlign = numberAt<std::int16_t>(header, FormatAt + 12);
    record.Bits = numberAt<std::int16_t>(header, FormatAt + 14);
    record.DataSize = numberAt<std::int32_t>(header, data + 4);
    record.HeaderSize = static_cast<std::int16_t>(data + ChunkHead);
    return record;
}

WaveFormatRecord ReadWaveFormat(const QString &path)
{
    return parseWaveFormat(readRegularFile(path, HeaderLimit).value_or(QByteArray()));
}

} // namespace ardiphon
