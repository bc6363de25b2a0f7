#pragma once

#include "support/SoundServer.h"
#include "support/WaveBytes.h"

#include <cmath>

/// Sounds whose samples give their own frame in the file, so that a recording shows what
/// was played and from where. They last at most 20 seconds.
namespace TimedSound {

constexpr int Rate = 44100;
constexpr int Step = 441; ///< frames of ten milliseconds

inline QByteArray wave(int milliseconds)
{
    QByteArray samples;
    const int frames = milliseconds * Rate / 1000;
    for (int frame = 0; frame < frames; ++frame)
        samples += WaveBytes::number<qint16>((frame / Step + 1) * 16) +
                   WaveBytes::number<qint16>((frame % Step + 1) * 64);
    return WaveBytes::wave(2, Rate, samples);
}

/// The place in the file that was heard as \a frame; -1 for silence.
inline int placeOf(const SoundServer::Frame &frame)
{
    if (frame.isSilent())
        return -1;
    return int(std::lround(frame.left / 16.0) - 1) * Step + int(std::lround(frame.right / 64.0)) -
           1;
}

} // namespace TimedSound
