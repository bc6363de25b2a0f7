#include "audio/ui/OutlineReader.h"

#include "platform/ui/SoundFile.h"

#include <QElapsedTimer>

#include <algorithm>

namespace ardiphon {

namespace {

constexpr qint64 BlockSamples = 16384;
constexpr qint64 ProgressInterval = 150; // milliseconds

/// As many columns as a wide screen has pixels, fewer where there are too many channels to see.
int columnsFor(int channels)
{
    constexpr int mostColumns = 4096;
    constexpr int mostChannels = 16;
    return mostColumns * mostChannels / std::max(channels, mostChannels);
}

/// The peaks of one column, read block by block; false when the file ends or \a stop is set.
bool readColumn(SoundFile &file, qint64 frames, std::vector<float> &block, std::vector<Peak> &peaks,
                const std::atomic<bool> &stop)
{
    const qint64 channels = file.channels();
    std::fill(peaks.begin(), peaks.end(), Peak());
    while (frames > 0) {
        const qint64 wanted = std::min(frames, qint64(block.size()) / channels);
        const qint64 read = file.read(block.data(), wanted);
        for (qint64 sample = 0; sample < read * channels; ++sample)
            peaks[sample % channels].include(block[sample]);
        if (read < wanted || stop)
            return false;
        frames -= read;
    }
    return true;
}

} // namespace

OutlineReader::OutlineReader(const QString &path, QObject *parent) : QThread(parent), m_path(path)
{
}

OutlineReader::~OutlineReader()
{
    m_stop = true;
    wait();
}

Peaks OutlineReader::peaks() const
{
    const QMutexLocker locker(&m_mutex);
    return m_peaks;
}

void OutlineReader::run()
{
    const auto file = SoundFile::open(m_path);
    if (!file)
        return;
    const Peaks shape(file->channels(), file->frames(), columnsFor(file->channels()));
    {
        const QMutexLocker locker(&m_mutex);
        m_peaks = shape;
    }
    std::vector<float> block(std::max<qint64>(BlockSamples, file->channels()));
    std::vector<Peak> column(file->channels());
    QElapsedTimer sinceProgress;
    sinceProgress.start();
    bool goesOn = true;
    for (int at = 0; at < shape.columns() && goesOn; ++at) {
        goesOn = readColumn(*file, shape.firstFrame(at + 1) - shape.firstFrame(at), block, column,
                            m_stop);
        const QMutexLocker locker(&m_mutex);
        for (int channel = 0; channel < shape.channels(); ++channel)
            m_peaks.at(at, channel) = column[channel];
        if (sinceProgress.hasExpired(ProgressInterval)) {
            sinceProgress.start();
            emit progressed();
        }
    }
    emit progressed();
}

} // namespace ardiphon
