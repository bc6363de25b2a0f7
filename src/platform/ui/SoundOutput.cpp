#include "platform/ui/SoundOutput.h"

#include "platform/SoundServer.h"
#include "platform/ui/SoundConnection.h"
#include "platform/ui/SoundFile.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QMediaDevices>

#include <algorithm>

namespace ardiphon {

namespace {

constexpr qint64 BlockFrames = 1024;

/// The file's own format, so that the samples stay as they are, but no more channels than the
/// device has: it would accept more and leave some of them out.
QAudioFormat formatFor(const SoundFile &file, const QAudioDevice &device)
{
    const int channels = std::max(1, device.preferredFormat().channelCount());
    QAudioFormat format;
    format.setSampleFormat(QAudioFormat::Float);
    format.setSampleRate(file.rate());
    format.setChannelCount(std::min(file.channels(), channels));
    return format;
}

} // namespace

std::unique_ptr<SoundOutput> SoundOutput::start(SoundFile &file, qint64 frame)
{
    // Qt looks for the server once and never again, so it may not look before there is one.
    if (!isSoundServerThere())
        return nullptr;
    SoundConnection &connection = SoundConnection::ofProgram();
    connection.restore();
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull())
        return nullptr;
    const QAudioFormat format = formatFor(file, device);
    if (!device.isFormatSupported(format))
        return nullptr;
    std::unique_ptr<SoundOutput> output(new SoundOutput(file, frame, device, format));
    if (output->feed())
        return output;
    connection.checkServer();
    return nullptr;
}

SoundOutput::SoundOutput(SoundFile &file, qint64 frame, const QAudioDevice &device,
                         const QAudioFormat &format)
    : m_file(file),
      m_channels(format.channelCount()),
      m_firstFrame(frame),
      m_endFrame(file.frames()),
      m_nextFrame(frame),
      m_heardFrame(frame),
      m_read(BlockFrames * file.channels()),
      m_mixed(BlockFrames * m_channels),
      m_sink(new QAudioSink(device, format))
{
    if (!m_file.seek(frame))
        m_endFrame = frame;
    m_sink->setBufferSize(format.bytesForDuration(qint64{BufferTime} * 1000));
    m_input = m_sink->start();
    m_clock.start();
}

SoundOutput::~SoundOutput()
{
    m_sink->stop();
    // Its destructor handles events, which must not happen within the call that ends a sound.
    m_sink.release()->deleteLater();
}

bool SoundOutput::feed()
{
    m_heardFrame = heardFrame();
    if (!m_input || m_sink->state() == QAudio::StoppedState)
        return false;
    const qint64 frameBytes = qint64(sizeof(float)) * m_channels;
    qint64 room = m_sink->bytesFree() / frameBytes;
    while (room > 0) {
        const qint64 count = std::min(room, BlockFrames);
        write(count);
        room -= count;
    }
    return true;
}

/// After the end comes silence, so that the device goes on until everything was heard.
void SoundOutput::write(qint64 count)
{
    const qint64 wanted = std::clamp<qint64>(m_endFrame - m_nextFrame, 0, count);
    const qint64 read = wanted > 0 ? m_file.read(m_read.data(), wanted) : 0;
    m_nextFrame += read;
    if (read < wanted)
        m_endFrame = m_nextFrame;
    mix(m_read.data(), m_mixed.data(), read);
    std::fill(m_mixed.begin() + read * m_channels, m_mixed.begin() + count * m_channels, 0.0F);
    m_input->write(reinterpret_cast<const char *>(m_mixed.data()),
                   count * m_channels * qint64(sizeof(float)));
}

/// Where the device has fewer channels, the file's are assigned to them in turn and averaged.
void SoundOutput::mix(const float *from, float *to, qint64 count) const
{
    const int channels = m_file.channels();
    for (qint64 frame = 0; frame < count; ++frame, from += channels, to += m_channels) {
        for (int target = 0; target < m_channels; ++target) {
            float sum = 0;
            int parts = 0;
            for (int source = target; source < channels; source += m_channels, ++parts)
                sum += from[source];
            to[target] = sum / float(parts);
        }
    }
}

/// The device's own count is wrong just after the start, and lost with the device: it is used as
/// far as the clock permits, and never goes back.
qint64 SoundOutput::heardFrame() const
{
    const qint64 heard = std::min(m_sink->processedUSecs(), m_clock.nsecsElapsed() / 1000);
    // In two steps, as the number of microseconds times the rate may be too large.
    const qint64 rate = m_file.rate();
    const qint64 frames = heard / 1'000'000 * rate + heard % 1'000'000 * rate / 1'000'000;
    return std::max(m_heardFrame, std::min(m_firstFrame + frames, m_endFrame));
}

bool SoundOutput::isOver() const { return heardFrame() >= m_endFrame; }

} // namespace ardiphon
