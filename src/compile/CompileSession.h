#pragma once

#include "compile/PrintedLog.h"
#include "platform/ChildProcess.h"

namespace ardiphon {

/// A run of a compiler, as it is asked for.
struct CompileRequest
{
    /// Its environment is what the compiler sees otherwise than this process beside what
    /// compilerEnvironment tells.
    ProgramCommand command;
    QString documentFolder = {}; ///< where what it writes by a relative name lands
    QString logFile = {};        ///< the one that the command names; "" for none
    ShowCommand show = ShowCommand::Hidden;
    QString programFolder = {}; ///< where the program is that keeps a terminal open; "" for none
    // Of a hidden one alone.
    OutputUse output = OutputUse::Discarded;
    LogPortion kept = {}; ///< how much of its lines printed() keeps
};

/// A compile run from its start to its one end. Any number of them may be under way at once; two
/// that name the same log share it. It asks the user nothing and waits for nothing: who wants to
/// wait for the end has RunConsoleProcess.
class CompileSession : public QObject
{
    Q_OBJECT

public:
    explicit CompileSession(QObject *parent = nullptr);
    /// Kills what still runs.
    ~CompileSession() override;

    /// Removes the log of an earlier run, sees to it that the folder for it is there, and starts
    /// the compiler; a log that cannot be removed is no reason not to. Once for each object: a
    /// second call does nothing. Exactly one ended() follows, sometimes before this call returns.
    void start(const CompileRequest &request);
    /// Kills the compiler with all that it has started; ended() follows when that is dead. The log
    /// stays as it is. Nothing happens when nothing runs.
    void stop();

    /// Whether the compiler was seen to start, or could not and has its end.
    bool isStarted() const { return m_process.isStarted(); }
    /// Empty until ended() was emitted.
    std::optional<ProcessEnd> end() const { return m_process.end(); }

    /// What the compiler has printed so far, where its lines were asked for.
    QString printed() const { return m_printed.text(); }
    /// What it has written into its log, as readCompilerLog gives it; complete after the end alone.
    /// Nothing when there is no log.
    std::optional<QString> readLog() const;

signals:
    void started();
    /// A line that it has printed, where these were asked for.
    void lineRead(const ardiphon::OutputLine &line);
    /// The last of the signals.
    void ended(ardiphon::ProcessEnd end);

private:
    ChildProcess m_process;
    PrintedLog m_printed;
    QString m_logFile;
    bool m_asked = false; ///< start() was called
};

} // namespace ardiphon
