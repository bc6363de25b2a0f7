#include "compile/CompileSession.h"

#include "compile/CompilerEnvironment.h"
#include "platform/RunFolder.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

namespace ardiphon {

namespace {

void makeWayForLog(const QString &logFile)
{
    if (logFile.isEmpty())
        return;
    // A failure here shows when the log is read.
    (void)restoreRunFolder(QFileInfo(logFile).path());
    (void)QFile::remove(logFile);
}

} // namespace

CompileSession::CompileSession(QObject *parent) : QObject(parent)
{
    connect(&m_process, &ChildProcess::started, this, &CompileSession::started);
    connect(&m_process, &ChildProcess::lineRead, this, [this](const OutputLine &line) {
        m_printed.add(line);
        emit lineRead(line);
    });
    connect(&m_process, &ChildProcess::ended, this, &CompileSession::ended);
}

CompileSession::~CompileSession() = default;

void CompileSession::start(const CompileRequest &request)
{
    if (std::exchange(m_asked, true))
        return;
    m_logFile = request.logFile;
    m_printed = PrintedLog(request.kept);
    makeWayForLog(m_logFile);
    ProcessStart start;
    start.command = request.command;
    start.command.environment = compilerEnvironment(request.documentFolder);
    start.command.environment += request.command.environment;
    start.show = request.show;
    start.programFolder = request.programFolder;
    start.output = request.output;
    m_process.start(start);
}

void CompileSession::stop() { m_process.stop(); }

std::optional<QString> CompileSession::readLog() const { return readCompilerLog(m_logFile); }

} // namespace ardiphon
