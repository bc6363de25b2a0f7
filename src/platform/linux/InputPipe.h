#pragma once

#include "platform/linux/Pipe.h"

#include <QByteArray>
#include <QObject>

#include <deque>
#include <memory>

class QSocketNotifier;

namespace ardiphon {

/// Our end of the pipe that a program reads. It is written from the event loop, as far as it has
/// room. When the reader is dead or has closed its end, the rest is dropped.
class InputPipe : public QObject
{
    Q_OBJECT

public:
    InputPipe();
    ~InputPipe() override;

    void open(Descriptor end);
    /// False when the pipe is not open, or closeWhenWritten() was called.
    [[nodiscard]] bool write(const QByteArray &bytes);
    void closeWhenWritten();
    /// Drops what the pipe has not taken.
    void closeNow();
    qint64 unwritten() const { return m_unwritten; }

signals:
    /// The pipe has taken all that was written.
    void allWritten();

private:
    void feed();

    Descriptor m_end;
    std::unique_ptr<QSocketNotifier> m_room; ///< active while there is something to write
    std::deque<QByteArray> m_blocks;
    qsizetype m_taken = 0; ///< of the first block
    qint64 m_unwritten = 0;
    bool m_closing = false;
};

} // namespace ardiphon
