#pragma once

#include "audio/Peaks.h"

#include <QMutex>
#include <QThread>

#include <atomic>

namespace ardiphon {

/// Reads a sound file once from beginning to end in a thread of its own, and makes its outline.
/// start() begins, once the signal is connected: a short file is read before the caller's next
/// line. Destroying it stops the reading.
class OutlineReader : public QThread
{
    Q_OBJECT

public:
    /// A file that cannot be decoded has an empty outline.
    explicit OutlineReader(const QString &path, QObject *parent = nullptr);
    ~OutlineReader() override;

    /// The outline as far as the file has been read; the other columns are silent.
    Peaks peaks() const;

signals:
    /// The outline has grown. Emitted a few times a second at most, and once at the end.
    void progressed();

protected:
    void run() override;

private:
    const QString m_path;
    std::atomic<bool> m_stop = false;
    mutable QMutex m_mutex;
    Peaks m_peaks; ///< guarded by m_mutex
};

} // namespace ardiphon
