#pragma once

#include "platform/linux/Pipe.h"

#include <QByteArray>
#include <QObject>

#include <deque>
#include <memory>

class QSocketNotifier;

namespace ardiphon {

/// Our end of the pipe that a program reads. It is fed from the event loop, as far as it takes
/// something. A reader that is dead or has closed its end is no harm: the rest is dropped.
class InputPipe : public QObject
{
    Q_OBJECT

public:
    InputPipe();
    ~InputPipe() override;

    void open(Descriptor end);
    /// False when it is not open, or closes behind what was written before.
    [[nodiscard]] bool write(const QByteArray &bytes);
    void closeWhenTaken();
    /// Drops what was not taken.
    void closeNow();
    qint64 unwritten() const { return m_unwritten; }

signals:
    /// All that was written has been taken.
    void taken();

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
