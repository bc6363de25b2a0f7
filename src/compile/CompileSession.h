#pragma once

#include "compile/PrintedLog.h"
#include "platform/ChildProcess.h"

namespace ardiphon {

/// What to run, and how.
struct CompileRequest
{
    /// The compiler's program. `environment` is added to the changes that compilerEnvironment()
    /// gives.
    ProgramCommand command;
    QString documentFolder = {}; ///< the folder for files that it writes by a relative name
    QString logFile = {};        ///< the one that the command names; "" for none
    ShowCommand show = ShowCommand::Hidden;
    QString programFolder = {}; ///< the folder of `ArdiphonConsole`; "" for no terminal
    // For a hidden compiler only.
    OutputUse output = OutputUse::Discarded;
    LogPortion kept = {}; ///< how much of its lines printed() keeps
};

/// A compile run from its start to its one end. Any number of runs may go on at once; two that name
/// the same log share it. It asks the user nothing and waits for nothing: RunConsoleProcess() waits
/// for the end.
class CompileSession : public QObject
{
    Q_OBJECT

public:
    explicit CompileSession(QObject *parent = nullptr);
    /// Kills what is still running.
    ~CompileSession() override;

    /// Removes the log of an earlier run, makes its folder again if it is missing, and starts the
    /// compiler, even when the log cannot be removed. Once for each object: a second call does
    /// nothing. Exactly one ended() follows, sometimes before this call returns.
    void start(const CompileRequest &request);
    /// Kills the compiler with all that it has started; ended() follows when all of that is dead.
    /// The log stays as it is. Does nothing when nothing is running.
    void stop();

    /// Whether the compiler has started, or could not start and end() says why.
    bool isStarted() const { return m_process.isStarted(); }
    /// Empty until ended() was emitted.
    std::optional<ProcessEnd> end() const { return m_process.end(); }

    /// What the compiler has printed so far, where its lines were asked for.
    QString printed() const { return m_printed.text(); }
    /// The text of its log, as readCompilerLog() gives it; complete only after the end. Nothing
    /// when there is no log.
    std::optional<QString> readLog() const;

signals:
    void started();
    /// A line that the compiler has printed, where lines were asked for.
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
