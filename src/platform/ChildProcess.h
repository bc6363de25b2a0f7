#pragma once

#include "platform/ChildEnvironment.h"
#include "platform/GroupGuard.h"

#include <QObject>
#include <QString>

#include <memory>
#include <optional>

class QProcess;

namespace ardiphon {

/// How the console of a program is shown.
enum class ShowCommand {
    Hidden = 0, ///< what it prints is discarded
    Normal = 1  ///< what it prints goes where ours goes; its windows are its own matter
};

/// What is started and how.
struct ProcessStart
{
    QString executable; ///< a path, or a bare name that is looked for in the search path
    QString parameters; ///< split by splitCommandText
    QString directory;  ///< where the child starts; "" is the current directory
    ShowCommand show = ShowCommand::Hidden;
    QList<EnvironmentChange> environment;
};

/// How a start came to its end.
enum class ProcessEnd {
    NotFound,    ///< did not start: there is no such file
    StartFailed, ///< did not start for any other reason
    Ended,       ///< ended by itself, whatever its exit code, or was ended by somebody else
    Stopped      ///< was ended by stop()
};

/// An external program with all that it starts in turn. It runs in a process group of its own,
/// which never outlives this object, its leader or this program. Nothing here blocks the caller.
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

    /// Kills the whole process group; ended() follows. Nothing happens when nothing runs.
    void stop();

    /// Whether the program was seen to start, or could not and has its end.
    bool isStarted() const { return m_started || m_end; }
    /// Empty until ended() was emitted.
    std::optional<ProcessEnd> end() const { return m_end; }
    /// Of the started program; 0 when there is none.
    qint64 processId() const { return m_group; }

signals:
    void started();
    void ended(ardiphon::ProcessEnd end);

private:
    void finishUnstarted();
    void finish(ProcessEnd end);
    void killGroup() const;

    std::unique_ptr<QProcess> m_process;
    GroupGuard m_guard;
    QString m_executable;
    qint64 m_group = 0; ///< process group, named by its leader
    bool m_started = false;
    bool m_stopping = false;
    std::optional<ProcessEnd> m_end;
};

} // namespace ardiphon
