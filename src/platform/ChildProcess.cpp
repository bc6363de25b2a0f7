#include "platform/ChildProcess.h"

#include "platform/CommandText.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

namespace ardiphon {

namespace {

/// The executable as an absolute path, for the child is in another directory when it looks for it.
/// A bare name that is not in the search path stays as it is.
QString locate(const QString &executable)
{
    if (executable.contains(u'/'))
        return QDir::current().absoluteFilePath(executable);
    const QString found = QStandardPaths::findExecutable(executable);
    return found.isEmpty() ? executable : found;
}

/// Whether there is hope for the start. QProcess would find out too, but each start that fails
/// costs it the end of a pipe.
bool canStart(const QString &executable, const QString &directory)
{
    const QFileInfo file(executable);
    return executable.contains(u'/') && file.isFile() && file.isExecutable() &&
           (directory.isEmpty() || QFileInfo(directory).isDir());
}

/// Runs in the child between fork and exec: only system calls are allowed.
void leadGroupAndDieWith(pid_t parent)
{
    ::setpgid(0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) // it died before the line above
        ::_exit(1);
}

} // namespace

ChildProcess::ChildProcess(QObject *parent) : QObject(parent), m_process(new QProcess)
{
    connect(m_process.get(), &QProcess::started, this, [this] {
        m_started = true;
        emit started();
    });
    connect(m_process.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            finishUnstarted();
    });
    connect(m_process.get(), &QProcess::finished, this,
            [this] { finish(m_stopping ? ProcessEnd::Stopped : ProcessEnd::Ended); });
}

ChildProcess::~ChildProcess()
{
    m_process->disconnect(this);
    if (m_process->state() == QProcess::NotRunning)
        return;
    // A process may take its time to die; it is collected later rather than waited for here.
    killGroup();
    QProcess *dying = m_process.release();
    connect(dying, &QProcess::finished, dying, &QObject::deleteLater);
    connect(dying, &QProcess::errorOccurred, dying, &QObject::deleteLater);
    dying->setParent(QCoreApplication::instance());
}

void ChildProcess::start(const ProcessStart &start)
{
    m_executable = locate(start.executable);
    if (!canStart(m_executable, start.directory))
        return finishUnstarted();
    m_process->setProgram(m_executable);
    m_process->setArguments(splitCommandText(start.parameters));
    m_process->setWorkingDirectory(start.directory);
    m_process->setProcessEnvironment(changedEnvironment(start.environment));
    m_process->setStandardInputFile(QProcess::nullDevice());
    if (start.show == ShowCommand::Hidden) {
        m_process->setStandardOutputFile(QProcess::nullDevice());
        m_process->setStandardErrorFile(QProcess::nullDevice());
    } else {
        m_process->setProcessChannelMode(QProcess::ForwardedChannels);
    }
    m_process->setChildProcessModifier([this, parent = ::getpid()] {
        leadGroupAndDieWith(parent);
        m_guard.watchFromLeader();
    });
    m_process->start();
    m_guard.leaderIsStarted();
    m_group = m_process->processId();
    if (m_group > 0) // from both sides: a stop may come before the child got that far
        ::setpgid(static_cast<pid_t>(m_group), static_cast<pid_t>(m_group));
}

void ChildProcess::finishUnstarted()
{
    finish(QFileInfo::exists(m_executable) ? ProcessEnd::StartFailed : ProcessEnd::NotFound);
}

void ChildProcess::stop()
{
    if (m_end || m_group == 0)
        return;
    m_stopping = true;
    killGroup();
}

void ChildProcess::finish(ProcessEnd end)
{
    if (m_end)
        return;
    m_end = end;
    killGroup(); // what the leader has left behind
    m_group = 0;
    emit ended(end);
}

void ChildProcess::killGroup() const
{
    // The number of a group is not given out again as long as the group has a member.
    if (m_group > 0)
        ::kill(-static_cast<pid_t>(m_group), SIGKILL);
}

} // namespace ardiphon
