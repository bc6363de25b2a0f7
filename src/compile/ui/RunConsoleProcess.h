#pragma once

#include "platform/ChildProcess.h"

#include <QObject>

#include <functional>

namespace ardiphon {

class Dialogs;

/// What a run needs from the system; tests replace it.
struct RunSystem
{
    std::function<qint64()> tickCount; ///< milliseconds of a clock that only goes forward
    std::function<void()> beep;
    /// The folder of the program that keeps a terminal open; "" for no terminal.
    QString programFolder = {};
    /// Called with the log of a run that has ended and that is shown, or not set.
    std::function<void(const QString &log)> logShown = {};

    static RunSystem real();
};

/// What the runs of a window with a console do with that window.
class RunConsole
{
public:
    virtual ~RunConsole() = default;
    virtual void enableStop() = 0;
    virtual QString consoleText() const = 0;
    virtual void setConsoleText(const QString &text) = 0;
};

/// The runs of one compile window, for the window's life. The window's handlers, which are called
/// from within a waiting run, use nothing of it but requestStop().
class RunOwner : public QObject
{
    Q_OBJECT

public:
    /// \a console is null for a window that has none: its runs name no log file, show no progress
    /// and end without a beep, and they never cancel a stop request.
    RunOwner(Dialogs &dialogs, RunSystem system, RunConsole *console);

    bool StopRequested = false;
    qint64 CompileStartTick = 0; ///< when the last run began
    QString compileLogFile;      ///< deleted before each run of a window with a console
    QString documentFolder;      ///< where files with relative names land

    /// Requests the end of every run of this window, each as soon as control is back in it.
    void requestStop();
    /// Milliseconds since the last run began.
    qint64 elapsed() const { return m_system.tickCount() - CompileStartTick; }

    Dialogs &dialogs() const { return m_dialogs; }
    const RunSystem &system() const { return m_system; }
    RunConsole *console() const { return m_console; }

signals:
    void stopRequested();

private:
    Dialogs &m_dialogs;
    RunSystem m_system;
    RunConsole *m_console;
};

/// Runs a CompileSession and returns when it has ended, was stopped or could not start; events are
/// handled meanwhile. True when it ended by itself, whatever its exit code: only then the window's
/// final steps follow. A failed start is reported to the user here. \a parameters are the arguments
/// as one text, as for commandOf().
///
/// While a call waits, the window may start another, which returns before this one goes on, and may
/// close, which stops every run of it, the inner ones first; but \a owner has to live until the
/// outermost call has returned.
[[nodiscard]] bool RunConsoleProcess(RunOwner &owner, const QString &executable,
                                     const QString &parameters, const QString &directory,
                                     ShowCommand showCommand);

} // namespace ardiphon
