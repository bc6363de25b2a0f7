#include "check/CheckRun.h"

#include "compile/CompilerLog.h"
#include "platform/RunFolder.h"

#include <QFile>
#include <QTimer>

namespace ardiphon {

namespace {

/// Of what the compiler prints, in bytes.
constexpr qsizetype MostPrinted = 1 << 18;

constexpr QByteArrayView AcceptedText = "Syntax check completed.";

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(bytes) == bytes.size() && file.flush();
}

QString lastLineOf(const QByteArray &printed)
{
    const QStringList lines = cleanLog(printed).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    return lines.isEmpty() ? QString() : lines.last().trimmed();
}

} // namespace

CheckRun::CheckRun(QObject *parent) : QObject(parent), m_limit(new QTimer(this))
{
    m_limit->setSingleShot(true);
    connect(m_limit, &QTimer::timeout, this, [this] { finish(CheckOutcome::GaveUp); });
    connect(&m_process, &ChildProcess::lineRead, this, &CheckRun::takeLine);
    connect(&m_process, &ChildProcess::ended, this, &CheckRun::takeEnd);
}

void CheckRun::start(const QString &compiler, const CheckInput &input, const QString &rootPath,
                     const QString &documentFolder)
{
    const bool isThere = restoreRunFolder(rootPath);
    m_folder.emplace(rootPath + QStringLiteral("check-XXXXXX"));
    const QString folder = m_folder->path() + u'/';
    if (!isThere || !m_folder->isValid() ||
        !writeFile(folder + input.orchestra.fileName, input.orchestraText) ||
        !writeFile(folder + input.score.fileName, input.scoreText)) {
        finish(CheckOutcome::NotWritten);
        return;
    }
    ProcessStart start{checkCommand(compiler, input, folder, documentFolder)};
    start.output = OutputUse::MergedLines;
    m_limit->start(Limit);
    m_process.start(start);
}

void CheckRun::takeLine(const OutputLine &line)
{
    if (m_isFinished)
        return;
    m_printed.append(line.bytes).append('\n');
    if (m_printed.size() > MostPrinted)
        finish(CheckOutcome::GaveUp);
}

void CheckRun::takeEnd(ProcessEnd end)
{
    if (end == ProcessEnd::NotFound || end == ProcessEnd::StartFailed)
        finish(CheckOutcome::NoCompiler);
    else
        finish(m_printed.contains(AcceptedText) ? CheckOutcome::Accepted : CheckOutcome::Refused);
}

void CheckRun::finish(CheckOutcome outcome)
{
    if (m_isFinished)
        return;
    m_isFinished = true;
    m_limit->stop();
    m_process.stop();
    CheckResult result{outcome, {}, {}};
    if (outcome == CheckOutcome::Accepted || outcome == CheckOutcome::Refused)
        result.messages = readCompilerMessages(m_printed);
    if (result.messages.isEmpty())
        result.lastLine = lastLineOf(m_printed);
    emit finished(result);
}

} // namespace ardiphon
