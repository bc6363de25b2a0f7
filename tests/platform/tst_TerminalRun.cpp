#include "platform/ChildProcess.h"
#include "support/StandInCompiler.h"
#include "support/TestMain.h"
#include "support/TimeLimit.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>
#include <sys/wait.h>
#include <unistd.h>

using namespace ardiphon;
using StandInCompiler::isAlive;

namespace {

/// Does what a terminal does, but for the window.
constexpr char Terminal[] = "#!/bin/sh\n"
                            "shift\n"
                            "exec setsid \"$@\" >>\"${0%/*}/screen\" 2>&1 </dev/null\n";

constexpr char Endless[] = "setsid sleep 300 & echo $! >fugitive\necho $$ >leader\nsleep 300\n";

} // namespace

/// A program that somebody waits for in a terminal.
class tst_TerminalRun : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void end_byItself_isReportedAndTheWindowStays();
    void environmentAndDirectory_reachTheProgram();
    void stop_endsAllAndClosesTheWindow();
    void stop_beforeTheConsoleIsHeardOf_endsAll();
    void stop_beforeTheWindow_startsNothing();
    void destroyed_endsAll();
    void program_killed_endsAll();
    void window_closed_endsAll_data();
    void window_closed_endsAll();
    void leader_ends_takesTheRestAlong();
    void noProgram_isAFailedStart();
    void lateWindow_runsWithoutOne();
    void missingConsole_runsWithoutOne();

private:
    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }
    void write(const char *name, const QByteArray &text) const;
    QByteArray read(const char *name) const;
    /// The process whose id is in that file; 0 when there is none yet.
    pid_t noted(const char *name) const;
    /// A compiler that is a shell script.
    ProcessStart script(const QByteArray &lines) const;
    /// Waits for the process id in that file while no event is handled.
    void waitWithoutEvents(const char *name) const;
    bool isOver() const { return !isAlive(noted("leader")) && !isAlive(noted("fugitive")); }

    const QByteArray m_path = qgetenv("PATH");
    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_TerminalRun::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    write("x-terminal-emulator", Terminal);
    qputenv("PATH", QFile::encodeName(m_folder->path()) + ':' + m_path);
}

void tst_TerminalRun::cleanup()
{
    qputenv("PATH", m_path);
    QTRY_VERIFY(isOver());
}

void tst_TerminalRun::write(const char *name, const QByteArray &text) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", name);
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QByteArray tst_TerminalRun::read(const char *name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

pid_t tst_TerminalRun::noted(const char *name) const
{
    const QByteArray text = read(name);
    return text.endsWith('\n') ? text.trimmed().toInt() : 0;
}

void tst_TerminalRun::waitWithoutEvents(const char *name) const
{
    const TimeLimit limit;
    while (!noted(name))
        ::usleep(1000);
}

ProcessStart tst_TerminalRun::script(const QByteArray &lines) const
{
    write("compiler", "#!/bin/sh\n" + lines);
    ProcessStart start;
    start.command.executable = path("compiler");
    start.command.directory = m_folder->path();
    start.show = ShowCommand::Normal;
    start.programFolder = QStringLiteral(PROGRAM_DIR);
    return start;
}

void tst_TerminalRun::end_byItself_isReportedAndTheWindowStays()
{
    ChildProcess process;
    QSignalSpy started(&process, &ChildProcess::started);
    QSignalSpy ended(&process, &ChildProcess::ended);
    ProcessStart start = script("echo \"heard $1\"\nexit 3\n");
    start.command.arguments = {QStringLiteral("a $HOME; b")};
    process.start(start);
    QVERIFY(process.isStarted());
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    QTRY_COMPARE(read("screen"), "heard a $HOME; b\n\nPress a key to close this window.");
    process.stop();
    QCoreApplication::processEvents();
    QCOMPARE(started.size(), 1);
    QCOMPARE(ended.size(), 1);
}

void tst_TerminalRun::environmentAndDirectory_reachTheProgram()
{
    qputenv("ARDIPHON_GONE", "there");
    ProcessStart start = script("pwd\necho \"$SFDIR\"\necho \"${ARDIPHON_GONE-none}\"\n");
    start.command.environment = {{"SFDIR", "/a \"folder\"=x"}, {"ARDIPHON_GONE", std::nullopt}};
    ChildProcess process;
    process.start(start);
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    QVERIFY2(read("screen").startsWith(QFile::encodeName(m_folder->path()) +
                                       "\n/a \"folder\"=x\nnone\n"),
             read("screen").constData());
}

void tst_TerminalRun::stop_endsAllAndClosesTheWindow()
{
    ChildProcess process;
    process.start(script(Endless));
    QTRY_VERIFY(noted("leader"));
    process.stop();
    QTRY_COMPARE(process.end(), ProcessEnd::Stopped);
    QVERIFY(isOver());
    QCOMPARE(read("screen"), ""); // no key is asked for
}

/// The program may run before the event loop learns that the console has connected.
void tst_TerminalRun::stop_beforeTheConsoleIsHeardOf_endsAll()
{
    ChildProcess process;
    process.start(script(Endless));
    waitWithoutEvents("leader");
    process.stop();
    QTRY_COMPARE(process.end(), ProcessEnd::Stopped);
    QVERIFY(isOver());
    QCOMPARE(read("screen"), "");
}

void tst_TerminalRun::stop_beforeTheWindow_startsNothing()
{
    write("x-terminal-emulator",
          QByteArray(Terminal)
                  .replace("shift\n", "shift\nwhile [ ! -e \"${0%/*}/go\" ]; do sleep 0.01; done\n")
                  .replace("exec setsid", "setsid -w") +
              "echo $$ >\"${0%/*}/closed\"\n");
    ChildProcess process;
    process.start(script("echo $$ >leader\n"));
    process.stop();
    QTRY_COMPARE(process.end(), ProcessEnd::Stopped);
    write("go", "");
    QTRY_VERIFY(noted("closed"));
    QCOMPARE(noted("leader"), 0);
}

void tst_TerminalRun::destroyed_endsAll()
{
    auto process = std::make_unique<ChildProcess>();
    process->start(script(Endless));
    QTRY_VERIFY(noted("leader"));
    process.reset();
    QTRY_VERIFY(isOver());
}

void tst_TerminalRun::program_killed_endsAll()
{
    const pid_t program = ::fork();
    if (program == 0) {
        ChildProcess process;
        process.start(script(Endless));
        for (;;)
            ::pause();
    }
    // Nobody in that process takes up the connection, and nobody need.
    QTRY_VERIFY(noted("leader"));
    QCOMPARE(::kill(program, SIGKILL), 0);
    QCOMPARE(::waitpid(program, nullptr, 0), program);
    QTRY_VERIFY(isOver());
}

void tst_TerminalRun::window_closed_endsAll_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("hangup") << SIGHUP;
    QTest::newRow("terminated") << SIGTERM;
}

void tst_TerminalRun::window_closed_endsAll()
{
    QFETCH(int, signal);
    ChildProcess process;
    // A program that takes no notice of its terminal's end.
    process.start(script(QByteArray("trap '' HUP TERM\necho $PPID >console\n") + Endless));
    QTRY_VERIFY(noted("leader"));
    QCOMPARE(::kill(noted("console"), signal), 0);
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    QVERIFY(isOver());
    QTRY_VERIFY(!isAlive(noted("console")));
    QCOMPARE(read("screen"), "");
}

void tst_TerminalRun::leader_ends_takesTheRestAlong()
{
    ChildProcess process;
    process.start(script("setsid sleep 300 & echo $! >fugitive\n"));
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    QVERIFY(noted("fugitive"));
    QVERIFY(isOver());
}

void tst_TerminalRun::noProgram_isAFailedStart()
{
    ProcessStart start = script(QByteArray());
    write("compiler", "\x7f"
                      "ELF nonsense");
    ChildProcess process;
    process.start(start);
    QTRY_COMPARE(process.end(), ProcessEnd::StartFailed);
    ChildProcess other;
    start.command.executable = path("gone");
    other.start(start);
    QCOMPARE(other.end(), ProcessEnd::NotFound);
}

void tst_TerminalRun::lateWindow_runsWithoutOne()
{
    write("x-terminal-emulator", "#!/bin/sh\n: >\"${0%/*}/called\"\n");
    ProcessStart start = script("echo $PPID >parent\n");
    start.terminalLimit = std::chrono::milliseconds(300);
    ChildProcess process;
    QSignalSpy started(&process, &ChildProcess::started);
    process.start(start);
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    QVERIFY(QFile::exists(path("called")));
    QVERIFY(noted("parent"));
    QCOMPARE(started.size(), 1);
}

void tst_TerminalRun::missingConsole_runsWithoutOne()
{
    ProcessStart start = script("echo $PPID >parent\n");
    start.programFolder = QStringLiteral("/no/such/folder");
    ChildProcess process;
    process.start(start);
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    QVERIFY(noted("parent"));
    QVERIFY(!QFile::exists(path("screen")));
}

ARDIPHON_TEST(tst_TerminalRun, QCoreApplication)
#include "tst_TerminalRun.moc"
