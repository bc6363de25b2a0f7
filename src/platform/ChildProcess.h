#pragma once

#include "platform/OutputLines.h"
#include "platform/ProgramCommand.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>

namespace ardiphon {

class GuardedRun;
class TerminalRun;

/// How the console of a program is shown.
enum class ShowCommand {
    Hidden = 0, ///< not at all; what becomes of its output is told by ProcessStart::output
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
    // The rest is for hidden programs alone.
    OutputUse output = OutputUse::Discarded;
    qsizetype longestLine = LongestLine; ///< in bytes; a longer one is told in pieces
    bool input = false; ///< whether write() is going to be used; else there is nothing to read
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
/// whatever group or session it went to. Nothing here blocks the caller, and any number of them may
/// run at once. A slot of any signal may call whatever there is here, wait in an event loop of its
/// own, or destroy the object, after which no signal comes.
class ChildProcess : public QObject
{
    Q_OBJECT

public:
    explicit ChildProcess(QObject *parent = nullptr);
    /// Kills what still runs.
    ~ChildProcess() override;

    /// Starts the program, once for each object: a second call does nothing. Exactly one ended()
    /// follows, sometimes before this call returns.
    void start(const ProcessStart &start);

    /// Hands \a bytes to the standard input of a program that was started with one, which takes
    /// them from the event loop, as it can; until then they are kept. False, and nothing is kept,
    /// before start() and when there is no input (any more): it was closed, or the program has
    /// ended or closed it itself, which does no other harm.
    [[nodiscard]] bool write(const QByteArray &bytes);
    /// The input ends behind what was written.
    void closeInput();
    /// How many bytes are kept for the program.
    qint64 unwritten() const;

    /// Kills it with all that it has started; ended() follows, when that is dead, and no line comes
    /// any more. Nothing happens when nothing runs.
    void stop();

    /// Whether the program was seen to start, or could not and has its end.
    bool isStarted() const { return m_started || m_end; }
    /// Empty until ended() was emitted.
    std::optional<ProcessEnd> end() const { return m_end; }

signals:
    /// Before any line; never when the program could not start.
    void started();
    /// A line that was printed, as soon as it is here. Until the slots return nothing more is read:
    /// a program that prints faster has to wait.
    void lineRead(const ardiphon::OutputLine &line);
    /// All that was written has been taken.
    void inputTaken();
    /// The last of the signals, after every line of a program that was not stopped.
    void ended(ardiphon::ProcessEnd end);

private:
    bool startInWindow(const ProcessStart &start);
    void startHere(const ProcessStart &start);
    void noteStart();
    void takeOutput(OutputChannel channel, const QByteArray &bytes);
    void tellLines(LineSplitter &lines);
    void finishRun();
    void finishUnstarted();
    void finish(ProcessEnd end);

    std::unique_ptr<GuardedRun> m_run;       ///< where it runs without a window
    std::unique_ptr<TerminalRun> m_terminal; ///< where it runs in one
    LineSplitter m_lines[2];                 ///< by channel
    QString m_executable;
    bool m_asked = false; ///< start() was called
    bool m_started = false;
    bool m_stopping = false;
    std::optional<ProcessEnd> m_end;
};

} // namespace ardiphon
