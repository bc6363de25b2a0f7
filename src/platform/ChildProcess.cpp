#include "platform/ChildProcess.h"

#include "platform/GuardedRun.h"
#include "platform/TerminalRun.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>

#include <utility>

namespace ardiphon {

namespace {

/// The executable as an absolute path, as the child is in another directory when it is looked for.
/// A bare name that is not in the search path stays as it is.
QString locate(const QString &executable)
{
    if (executable.contains(u'/'))
        return QDir::current().absoluteFilePath(executable);
    const QString found = QStandardPaths::findExecutable(executable);
    return found.isEmpty() ? executable : found;
}

/// False when the start would certainly fail; the rest is found out by trying.
bool canStart(const QString &executable, const QString &directory)
{
    const QFileInfo file(executable);
    return executable.contains(u'/') && file.isFile() && file.isExecutable() &&
           (directory.isEmpty() || QFileInfo(directory).isDir());
}

GuardedStreams streamsOf(const ProcessStart &start)
{
    using Output = GuardedStreams::Output;
    if (start.show == ShowCommand::Normal) // there is no terminal
        return {Output::Ours, false};
    switch (start.output) {
    case OutputUse::Lines:
        return {Output::Read, start.input};
    case OutputUse::MergedLines:
        return {Output::ReadTogether, start.input};
    case OutputUse::Discarded:
        break;
    }
    return {Output::Discarded, start.input};
}

} // namespace

ChildProcess::ChildProcess(QObject *parent) : QObject(parent) {}

ChildProcess::~ChildProcess() = default;

void ChildProcess::start(const ProcessStart &start)
{
    if (std::exchange(m_asked, true))
        return;
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
    connect(terminal.get(), &TerminalRun::windowNotOpened, this, [this, start] {
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
    noteStart();
    return true;
}

void ChildProcess::startHere(const ProcessStart &start)
{
    m_lines[0] = LineSplitter(OutputChannel::Standard, start.longestLine);
    m_lines[1] = LineSplitter(OutputChannel::Errors, start.longestLine);
    m_run = std::make_unique<GuardedRun>();
    connect(m_run.get(), &GuardedRun::started, this, &ChildProcess::noteStart);
    connect(m_run.get(), &GuardedRun::failed, this, &ChildProcess::finishUnstarted);
    connect(m_run.get(), &GuardedRun::printed, this, &ChildProcess::takeOutput);
    connect(m_run.get(), &GuardedRun::inputWritten, this, &ChildProcess::inputWritten);
    connect(m_run.get(), &GuardedRun::ended, this, &ChildProcess::finishRun);
    ProgramCommand command = start.command;
    command.executable = m_executable;
    if (!m_run->start(command, streamsOf(start)))
        finishUnstarted();
}

void ChildProcess::noteStart()
{
    if (!std::exchange(m_started, true))
        emit started();
}

void ChildProcess::takeOutput(OutputChannel channel, const QByteArray &bytes)
{
    LineSplitter &lines = m_lines[int(channel)];
    lines.add(bytes);
    emitLines(lines);
}

/// A slot may wait in an event loop, in which more lines are read and emitted, and may destroy this
/// object.
void ChildProcess::emitLines(LineSplitter &lines)
{
    const QPointer<ChildProcess> here(this);
    while (here && !m_stopping) {
        const auto line = lines.next();
        if (!line)
            return;
        emit lineRead(*line);
    }
}

void ChildProcess::finishRun()
{
    const QPointer<ChildProcess> here(this);
    for (LineSplitter &lines : m_lines) {
        emitLines(lines);
        while (here && !m_stopping) {
            const auto rest = lines.rest();
            if (!rest)
                break;
            emit lineRead(*rest);
        }
        if (!here)
            return;
    }
    finish(m_stopping ? ProcessEnd::Stopped : ProcessEnd::Ended);
}

bool ChildProcess::write(const QByteArray &bytes) { return m_run && !m_end && m_run->write(bytes); }

void ChildProcess::closeInput()
{
    if (m_run)
        m_run->closeInput();
}

qint64 ChildProcess::unwritten() const { return m_run ? m_run->unwritten() : 0; }

void ChildProcess::finishUnstarted()
{
    finish(QFileInfo::exists(m_executable) ? ProcessEnd::StartFailed : ProcessEnd::NotFound);
}

void ChildProcess::stop()
{
    if (m_end || !(m_run || m_terminal))
        return;
    m_stopping = true;
    if (m_run)
        m_run->stop();
    else
        m_terminal->stop();
}

void ChildProcess::finish(ProcessEnd end)
{
    if (m_end)
        return;
    m_end = end;
    emit ended(end);
}

} // namespace ardiphon
