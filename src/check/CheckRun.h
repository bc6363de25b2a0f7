#pragma once

#include "check/CheckInput.h"
#include "check/CompilerMessage.h"
#include "platform/ChildProcess.h"

#include <QObject>
#include <QTemporaryDir>

#include <optional>

class QTimer;

namespace ardiphon {

enum class CheckOutcome {
    Accepted,
    Refused,    ///< with or without messages
    GaveUp,     ///< it took longer than CheckRun::Limit, or printed without end
    NoCompiler, ///< it cannot be started
    NotWritten  ///< the files for it cannot be written
};

struct CheckResult
{
    CheckOutcome outcome = CheckOutcome::Refused;
    QList<CompilerMessage> messages;
    QString lastLine; ///< that it printed, where there are no messages
};

/// One check of a piece by the compiler: a process that performs nothing and opens no device.
class CheckRun : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds Limit{1000};

    /// Kills what is still running when it is destroyed.
    explicit CheckRun(QObject *parent = nullptr);

    /// Writes the files of \a input below \a rootPath, the path of the run's private folder, and
    /// starts \a compiler. Once for each object; exactly one finished() follows, sometimes before
    /// this call returns.
    void start(const QString &compiler, const CheckInput &input, const QString &rootPath,
               const QString &documentFolder);

signals:
    void finished(const ardiphon::CheckResult &result);

private:
    void takeLine(const OutputLine &line);
    void takeEnd(ProcessEnd end);
    void finish(CheckOutcome outcome);

    std::optional<QTemporaryDir> m_folder; ///< of its files; removed after the process has ended
    ChildProcess m_process;
    QTimer *m_limit;
    QByteArray m_printed;
    bool m_isFinished = false;
};

} // namespace ardiphon
