#pragma once

#include <QElapsedTimer>

#include <memory>
#include <vector>

class QAudioDevice;
class QAudioFormat;
class QAudioSink;
class QIODevice;

namespace ardiphon {

class SoundFile;

/// One run of a file through the sound device that is the default when it starts. The file is read
/// as the device asks for it; destroying the object ends the sound at once.
class SoundOutput
{
public:
    /// Begins to play \a file, which must outlive the run, from \a frame on. Null when there is no
    /// device, or none that takes such a file.
    static std::unique_ptr<SoundOutput> start(SoundFile &file, qint64 frame);
    ~SoundOutput();

    /// Gives the device what it has room for; to be called several times within BufferTime. False
    /// when the device was lost.
    bool feed();
    /// The frame that is heard now; after the last one the number of frames.
    qint64 heardFrame() const;
    bool isOver() const;

    /// Milliseconds of sound that are handed over in advance.
    static constexpr int BufferTime = 400;

private:
    SoundOutput(SoundFile &file, qint64 frame, const QAudioDevice &device,
                const QAudioFormat &format);
    void write(qint64 count);
    void mix(const float *from, float *to, qint64 count) const;

    SoundFile &m_file;
    const int m_channels; ///< of the device
    const qint64 m_firstFrame;
    qint64 m_endFrame;     ///< where the file really ends
    qint64 m_nextFrame;    ///< to be read
    qint64 m_heardFrame;   ///< at the last feed(); a lost device does not know it any more
    QElapsedTimer m_clock; ///< since the start
    std::vector<float> m_read;
    std::vector<float> m_mixed;
    std::unique_ptr<QAudioSink> m_sink;
    QIODevice *m_input; ///< of the device, owned by it
};

} // namespace ardiphon
