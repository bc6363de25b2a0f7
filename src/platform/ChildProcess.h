#pragma once

#include "platform/linux/Guard.h"
#include "platform/ProgramCommand.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>

class QSocketNotifier;

namespace ardiphon {

class TerminalRun;

/// How the console of a program is shown.
enum class ShowCommand {
    Hidden = 0, ///< what it prints is discarded
    Normal = 1  ///< in a terminal window; without one what it prints goes where ours goes
};

/// What is started and how.
struct ProcessStart
{
    ProgramCommand command;
    ShowCommand show = ShowCommand::Hidden;
    QString programFolder = {}; ///< where `ArdiphonConsole` is; "" for no terminal
    /// How long a terminal may take to open its window; then the program starts without one.
    std::chrono::milliseconds terminalLimit = std::chrono::seconds(15);
};

/// How a start came to its end.
enum class ProcessEnd {
    NotFound,    ///< did not start: there is no such file
    StartFailed, ///< did not start for any other reason
    Ended,       ///< ended by itself, whatever its exit code, or was ended by somebody else
    Stopped      ///< was ended by stop()
};

/// An external program with all that it starts in turn. It leads a process group of its own;
/// nothing of what it has started outlives this object, the program's own end or this process,
/// whatever group or session it went to. Nothing here blocks the caller.
class ChildProcess : public QObject
{
    Q_OBJECT

public:
    explicit ChildProcess(QObject *parent = nullptr);
    /// Kills what still runs.
    ~ChildProcess() override;

    /// Starts the program, once for each object. Exactly one ended() follows, sometimes before
    /// this call returns.
    void start(const ProcessStart &start);

    /// Kills it with all that it has started; ended() follows, when that is dead. Nothing happens
    /// when nothing runs.
    void stop();

    /// Whether the program was seen to start, or could not and has its end.
    bool isStarted() const { return m_started || m_end; }
    /// Empty until ended() was emitted.
    std::optional<ProcessEnd> end() const { return m_end; }

signals:
    void started();
    void ended(ardiphon::ProcessEnd end);

private:
    GuardedProgram guarded(const ProcessStart &start) const;
    bool startInWindow(const ProcessStart &start);
    void startHere(const ProcessStart &start);
    void readNews();
    void finishUnstarted();
    void finish(ProcessEnd end);

    Guard m_guard;
    std::unique_ptr<QSocketNotifier> m_news; ///< of the guard; none before a start
    std::unique_ptr<TerminalRun> m_terminal; ///< where it runs in a window
    QString m_executable;
    bool m_started = false;
    bool m_stopping = false;
    std::optional<ProcessEnd> m_end;
};

} // namespace ardiphon
