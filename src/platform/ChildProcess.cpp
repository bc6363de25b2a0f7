#include "platform/ChildProcess.h"

#include "platform/TerminalRun.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>
#include <QStandardPaths>

#include <utility>

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

/// Whether there is hope for the start; the rest is found out by trying.
bool canStart(const QString &executable, const QString &directory)
{
    const QFileInfo file(executable);
    return executable.contains(u'/') && file.isFile() && file.isExecutable() &&
           (directory.isEmpty() || QFileInfo(directory).isDir());
}

} // namespace

ChildProcess::ChildProcess(QObject *parent) : QObject(parent) {}

ChildProcess::~ChildProcess() = default;

void ChildProcess::start(const ProcessStart &start)
{
    m_executable = locate(start.command.executable);
    if (!canStart(m_executable, start.command.directory))
        return finishUnstarted();
    if (start.show == ShowCommand::Hidden || !startInWindow(start))
        startHere(start);
}

bool ChildProcess::startInWindow(const ProcessStart &start)
{
    auto terminal = std::make_unique<TerminalRun>();
    connect(terminal.get(), &TerminalRun::ended, this,
            [this] { finish(m_stopping ? ProcessEnd::Stopped : ProcessEnd::Ended); });
    connect(terminal.get(), &TerminalRun::failed, this, &ChildProcess::finishUnstarted);
    connect(terminal.get(), &TerminalRun::missed, this, [this, start] {
        if (m_stopping)
            finish(ProcessEnd::Stopped);
        else
            startHere(start);
    });
    ProgramCommand command = start.command;
    command.executable = m_executable;
    if (!terminal->start(command, start.programFolder, start.terminalLimit))
        return false;
    m_terminal = std::move(terminal);
    m_started = true;
    emit started();
    return true;
}

void ChildProcess::startHere(const ProcessStart &start)
{
    if (!m_guard.start(guarded(start)))
        return finishUnstarted();
    m_news = std::make_unique<QSocketNotifier>(m_guard.newsDescriptor(), QSocketNotifier::Read);
    connect(m_news.get(), &QSocketNotifier::activated, this, &ChildProcess::readNews);
}

GuardedProgram ChildProcess::guarded(const ProcessStart &start) const
{
    GuardedProgram program;
    program.path = QFile::encodeName(m_executable);
    program.arguments.append(program.path);
    for (const QString &argument : start.command.arguments)
        program.arguments.append(QFile::encodeName(argument));
    program.environment = changedVariables(start.command.environment);
    program.directory = QFile::encodeName(start.command.directory);
    program.hidden = start.show == ShowCommand::Hidden;
    return program;
}

void ChildProcess::readNews()
{
    const auto news = m_guard.readNews();
    if (news == Guard::News::Started) {
        if (!std::exchange(m_started, true))
            emit started();
    } else if (news == Guard::News::Failed) {
        finishUnstarted();
    } else if (news == Guard::News::End) {
        finish(m_stopping ? ProcessEnd::Stopped : ProcessEnd::Ended);
    }
}

void ChildProcess::finishUnstarted()
{
    finish(QFileInfo::exists(m_executable) ? ProcessEnd::StartFailed : ProcessEnd::NotFound);
}

void ChildProcess::stop()
{
    if (m_end || !(m_news || m_terminal))
        return;
    m_stopping = true;
    if (m_news)
        m_guard.release();
    else
        m_terminal->stop();
}

void ChildProcess::finish(ProcessEnd end)
{
    if (m_end)
        return;
    m_end = end;
    if (m_news)
        m_news->setEnabled(false);
    emit ended(end);
}

} // namespace ardiphon
