#pragma once

#include "compile/CompilerLog.h"
#include "platform/OutputLines.h"

#include <deque>

namespace ardiphon {

/// What a run has printed, up to a limit: as much of its beginning as the portion says, and as much
/// of its end, in whole lines.
class PrintedLog
{
public:
    explicit PrintedLog(const LogPortion &portion = {});

    /// Takes the next line, of either channel.
    void add(const OutputLine &line);
    /// All that is kept, as cleanLog gives it; where there was more in between, one line says how
    /// much that was.
    QString text() const;

private:
    bool addToHead(const QByteArray &line);
    void dropFromTail();

    LogPortion m_portion;
    QByteArray m_head;
    qint64 m_headLines = 0;
    bool m_headIsFull = false;
    std::deque<QByteArray> m_tail;
    qint64 m_tailBytes = 0;
    qint64 m_dropped = 0; ///< bytes between the two
};

} // namespace ardiphon
