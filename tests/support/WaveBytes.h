#pragma once

#include <QByteArray>
#include <QtEndian>

/// Bytes of wave files for tests, made without any code of the program.
namespace WaveBytes {

template <typename Number>
QByteArray number(qint64 value)
{
    QByteArray bytes(sizeof(Number), '\0');
    qToLittleEndian(static_cast<Number>(value), bytes.data());
    return bytes;
}

inline QByteArray chunk(const char *tag, const QByteArray &content)
{
    return QByteArray(tag) + number<qint32>(content.size()) + content;
}

/// The 16 bytes of a format chunk for whole-number samples.
inline QByteArray format(int channels, int rate, int bits)
{
    const int block = channels * bits / 8;
    return number<qint16>(1) + number<qint16>(channels) + number<qint32>(rate) +
           number<qint32>(rate * block) + number<qint16>(block) + number<qint16>(bits);
}

inline QByteArray riff(const QByteArray &chunks)
{
    return "RIFF" + number<qint32>(4 + chunks.size()) + "WAVE" + chunks;
}

/// A plain file of 16-bit samples.
inline QByteArray wave(int channels, int rate, const QByteArray &samples)
{
    return riff(chunk("fmt ", format(channels, rate, 16)) + chunk("data", samples));
}

} // namespace WaveBytes
