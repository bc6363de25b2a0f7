#include "compile/ui/RunConsoleProcess.h"

#include "compile/CompileRules.h"
#include "compile/CompileSession.h"
#include "platform/CommandText.h"
#include "platform/Dialogs.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <utility>

namespace ardiphon {

namespace {

/// How long a killed process may take to end before it is not waited for any more.
constexpr std::chrono::seconds DeathLimit{2};

/// One run. Events only wake it: it acts when control is back in it, so that runs nested in its
/// event loop come first.
class WaitingRun
{
public:
    explicit WaitingRun(RunOwner &owner);

    bool run(const CompileRequest &request);

private:
    bool start(const CompileRequest &request);
    bool hasFailed() const;
    void reportFailedStart();
    void stop();
    void stepProgress();
    void waitForNews();
    void waitUntil(const std::function<bool()> &reached,
                   QDeadlineTimer limit = QDeadlineTimer::Forever);

    RunOwner &m_owner;
    RunConsole *const m_console;
    CompileSession m_session;
    QEventLoop m_loop;
    QTimer m_timer;
    qint64 m_lastSecond = 0;
    bool m_news = false; ///< something happened since the loop was last entered
};

WaitingRun::WaitingRun(RunOwner &owner) : m_owner(owner), m_console(owner.console())
{
    const auto wake = [this] {
        m_news = true;
        m_loop.quit();
    };
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_loop, wake);
    QObject::connect(&m_session, &CompileSession::started, &m_loop, wake);
    QObject::connect(&m_session, &CompileSession::ended, &m_loop, wake);
    QObject::connect(&m_owner, &RunOwner::stopRequested, &m_loop, wake);
}

bool WaitingRun::run(const CompileRequest &request)
{
    if (!start(request)) {
        reportFailedStart();
        return false;
    }
    if (m_console) {
        m_console->setConsoleText(QString());
        m_console->setConsoleText(FirstProgressText);
    }
    for (bool finished = false; !finished;) {
        finished = m_session.end().has_value();
        if (m_owner.StopRequested) {
            stop();
            return false;
        }
        if (m_console)
            stepProgress();
        if (finished)
            QCoreApplication::processEvents();
        else
            waitForNews();
    }
    if (hasFailed()) { // which a terminal reported late
        reportFailedStart();
        return false;
    }
    if (m_console)
        m_owner.system().beep();
    return true;
}

/// Waits until the program runs or could not start, which is soon. What the user does meanwhile is
/// handled afterwards.
bool WaitingRun::start(const CompileRequest &request)
{
    const bool asked = m_console && std::exchange(m_owner.StopRequested, false);
    m_session.start(request);
    waitUntil([this] { return m_session.isStarted(); });
    const bool started = !hasFailed();
    if (!started && asked) // that request was for the run that waits outside this one
        m_owner.StopRequested = true;
    return started;
}

bool WaitingRun::hasFailed() const
{
    const auto end = m_session.end();
    return end == ProcessEnd::NotFound || end == ProcessEnd::StartFailed;
}

void WaitingRun::reportFailedStart()
{
    const QString text = m_session.end() == ProcessEnd::NotFound
                             ? QStringLiteral("File was not found.")
                             : QStringLiteral("An unexpected error occured.");
    m_owner.dialogs().message({text, ProgramTitle, MessageIcon::None});
}

void WaitingRun::stop()
{
    m_session.stop();
    waitUntil([this] { return m_session.end().has_value(); }, QDeadlineTimer(DeathLimit));
    if (m_console)
        m_console->setConsoleText(StoppedText);
}

void WaitingRun::stepProgress()
{
    const qint64 now = m_owner.system().tickCount() / 1000;
    if (now <= m_lastSecond)
        return;
    m_lastSecond = now;
    const QString text = m_console->consoleText();
    const QString next = nextProgressText(text);
    if (next != text)
        m_console->setConsoleText(next);
}

/// Handles events until the process ends, a stop is requested or the next second begins.
void WaitingRun::waitForNews()
{
    if (m_console)
        m_timer.start(int(1000 - m_owner.system().tickCount() % 1000));
    m_news = false;
    m_loop.exec();
    if (!m_news) // no loop runs any longer: the program is about to end
        m_owner.StopRequested = true;
}

/// Handles events, apart from the user's, until \a reached or \a limit.
void WaitingRun::waitUntil(const std::function<bool()> &reached, QDeadlineTimer limit)
{
    if (!limit.isForever())
        m_timer.start(int(limit.remainingTime()));
    m_news = true;
    while (m_news && !reached() && !limit.hasExpired()) {
        m_news = false;
        m_loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
}

} // namespace

RunSystem RunSystem::real()
{
    return {[] { return QDeadlineTimer::current().deadline(); }, [] { QApplication::beep(); },
            QCoreApplication::applicationDirPath()};
}

RunOwner::RunOwner(Dialogs &dialogs, RunSystem system, RunConsole *console)
    : m_dialogs(dialogs), m_system(std::move(system)), m_console(console)
{
}

void RunOwner::requestStop()
{
    StopRequested = true;
    emit stopRequested();
}

bool RunConsoleProcess(RunOwner &owner, const QString &executable, const QString &parameters,
                       const QString &directory, ShowCommand showCommand)
{
    CompileRequest request{commandOf(executable, parameters, directory), owner.documentFolder};
    request.show = showCommand;
    request.programFolder = owner.system().programFolder;
    if (RunConsole *console = owner.console()) {
        console->enableStop();
        owner.CompileStartTick = owner.system().tickCount();
        request.logFile = owner.compileLogFile;
    }
    return WaitingRun(owner).run(request);
}

} // namespace ardiphon
