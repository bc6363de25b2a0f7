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
    Hidden = 0, ///< not at all; its output is used as ProcessStart::output says
    Normal = 1  ///< in a terminal window; without one it prints where this program prints
};

/// Which program is started, and how.
struct ProcessStart
{
    ProgramCommand command;
    ShowCommand show = ShowCommand::Hidden;
    QString programFolder = {}; ///< where `ArdiphonConsole` is; "" for no terminal
    /// How long a terminal may take to open its window; then the program starts without one.
    std::chrono::milliseconds terminalLimit = std::chrono::seconds(15);
    // The rest is for hidden programs only.
    OutputUse output = OutputUse::Discarded;
    qsizetype longestLine = LongestLine; ///< in bytes; a longer one is given in pieces
    bool input = false; ///< whether write() will be used; else the program finds its input empty
};

/// How a run ended.
enum class ProcessEnd {
    NotFound,    ///< it did not start: there is no such file
    StartFailed, ///< it did not start for any other reason
    Ended,       ///< it ended by itself, whatever its exit code, or was killed by somebody else
    Stopped      ///< it was ended by stop()
};

/// An external program with all that it starts in turn. It leads a process group of its own;
/// nothing of what it has started outlives this object, the program's own end or this process,
/// whatever group or session it went to. Nothing here blocks the caller, and any number of them may
/// run at once. A slot of any signal may call any routine of this class, wait in an event loop of
/// its own, or destroy the object, after which there is no further signal.
class ChildProcess : public QObject
{
    Q_OBJECT

public:
    explicit ChildProcess(QObject *parent = nullptr);
    /// Kills what is still running.
    ~ChildProcess() override;

    /// Starts the program, once for each object: a second call does nothing. It is followed by
    /// exactly one ended(), sometimes before this call returns.
    void start(const ProcessStart &start);

    /// Writes \a bytes to the standard input of a program that was started with one. They are kept
    /// here and passed on from the event loop as the program reads them. False, and nothing is
    /// kept, before start() and when there is no input or it is closed: by closeInput(), by the
    /// program, or because the program has ended, which does no other harm.
    [[nodiscard]] bool write(const QByteArray &bytes);
    /// Closes the input after what was written.
    void closeInput();
    /// How many bytes are kept for the program.
    qint64 unwritten() const;

    /// Kills it with all that it has started; ended() follows when all of that is dead, and no more
    /// lines come. Does nothing when nothing is running.
    void stop();

    /// Whether the program has started, or could not start and end() says why.
    bool isStarted() const { return m_started || m_end; }
    /// Empty until ended() was emitted.
    std::optional<ProcessEnd> end() const { return m_end; }

signals:
    /// Emitted before any line; never when the program could not start.
    void started();
    /// A line that the program printed, as soon as it has been read. Nothing more is read until the
    /// slots return: a program that prints faster has to wait.
    void lineRead(const ardiphon::OutputLine &line);
    /// The program's input has taken all that was written.
    void inputWritten();
    /// The last of the signals, after every line of a program that was not stopped.
    void ended(ardiphon::ProcessEnd end);

private:
    bool startInWindow(const ProcessStart &start);
    void startHere(const ProcessStart &start);
    void noteStart();
    void takeOutput(OutputChannel channel, const QByteArray &bytes);
    void emitLines(LineSplitter &lines);
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
