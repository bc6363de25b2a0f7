#include "platform/ui/SoundFile.h"

#include <QFile>
#include <QFileInfo>

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace ardiphon {

struct SoundFile::Handle
{
    SNDFILE *file = nullptr;
    SF_INFO info{};
    ~Handle() { sf_close(file); }
};

SoundFile::SoundFile(std::unique_ptr<Handle> handle) : m_handle(std::move(handle)) {}

SoundFile::~SoundFile() = default;

std::unique_ptr<SoundFile> SoundFile::open(const QString &path, QString *reason)
{
    if (!QFileInfo(path).isFile()) { // reading a pipe might never end
        if (reason)
            *reason = QStringLiteral("There is no such file.");
        return nullptr;
    }
    auto handle = std::make_unique<Handle>();
    handle->file = sf_open(QFile::encodeName(path).constData(), SFM_READ, &handle->info);
    const SF_INFO &info = handle->info;
    if (!handle->file || info.channels <= 0 || info.samplerate <= 0 || info.frames < 0) {
        if (reason) // without a file the decoder gives the reason of its last failure
            *reason = handle->file ? QStringLiteral("Its header makes no sense.")
                                   : QString::fromLocal8Bit(sf_strerror(nullptr));
        return nullptr;
    }
    return std::unique_ptr<SoundFile>(new SoundFile(std::move(handle)));
}

int SoundFile::channels() const { return m_handle->info.channels; }

int SoundFile::rate() const { return m_handle->info.samplerate; }

qint64 SoundFile::frames() const { return m_handle->info.frames; }

int SoundFile::milliseconds() const { return millisecondsAt(frames()); }

qint64 SoundFile::frameAt(int milliseconds) const
{
    return std::clamp<qint64>(qint64(milliseconds) * rate() / 1000, 0, frames());
}

int SoundFile::millisecondsAt(qint64 frame) const
{
    // In two steps, as the number of frames may be as large as its type allows.
    const qint64 inside = std::clamp<qint64>(frame, 0, frames());
    const qint64 seconds = inside / rate();
    constexpr qint64 longest = std::numeric_limits<int>::max();
    if (seconds >= longest / 1000)
        return longest;
    return static_cast<int>(seconds * 1000 + inside % rate() * 1000 / rate());
}

bool SoundFile::seek(qint64 frame)
{
    return frame >= 0 && sf_seek(m_handle->file, frame, SEEK_SET) == frame;
}

qint64 SoundFile::read(float *samples, qint64 count)
{
    const qint64 read = std::max<qint64>(0, sf_readf_float(m_handle->file, samples, count));
    std::for_each(samples, samples + read * channels(), [](float &sample) {
        // Files of floating-point samples may hold any value.
        sample = std::isnan(sample) ? 0.0F : std::clamp(sample, -1.0F, 1.0F);
    });
    return read;
}

} // namespace ardiphon
