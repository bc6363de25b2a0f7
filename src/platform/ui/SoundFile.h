#pragma once

#include <QString>

#include <memory>

namespace ardiphon {

/// A sound file that is decoded piece by piece, whatever its format. One thread at a time may use
/// an object; several objects may read the same file.
class SoundFile
{
public:
    /// Null when \a path names no file that can be decoded; then \a reason, if given, says why in
    /// the decoder's words.
    static std::unique_ptr<SoundFile> open(const QString &path, QString *reason = nullptr);
    ~SoundFile();

    int channels() const;
    int rate() const; ///< frames a second
    qint64 frames() const;
    int milliseconds() const; ///< length, at most what an int holds

    /// The frame played at that time, and the reverse; both are limited to the file.
    qint64 frameAt(int milliseconds) const;
    int millisecondsAt(qint64 frame) const;

    /// Continues reading at \a frame. False when it cannot be reached.
    bool seek(qint64 frame);
    /// Reads up to \a count frames into \a samples, the channels of a frame together, each between
    /// -1 and 1. Returns how many there were; fewer than asked for at the end, or where the file
    /// was shortened since it was opened.
    qint64 read(float *samples, qint64 count);

private:
    struct Handle;
    explicit SoundFile(std::unique_ptr<Handle> handle);
    std::unique_ptr<Handle> m_handle;
};

} // namespace ardiphon
