#include "platform/ChildProcess.h"
#include "platform/StartDetached.h"
#include "support/Require.h"
#include "support/StandInCompiler.h"
#include "support/TestMain.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>
#include <sys/wait.h>
#include <unistd.h>

using namespace ardiphon;
using namespace StandInCompiler;

class tst_ChildProcess : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void start_endsByItself_oneEnd();
    void start_failingExitCode_isAnEndLikeAnyOther();
    void start_directoryAndEnvironment_reachTheChild();
    void start_oddNames_areOneArgument();
    void start_cannot_oneEndThatSaysWhy_data();
    void start_cannot_oneEndThatSaysWhy();
    void start_cannot_leavesNoHandle_data();
    void start_cannot_leavesNoHandle();
    void start_bareName_isFoundInTheSearchPath();
    void start_relativePath_isFromTheCurrentDirectory();
    void start_brokenPipe_endsTheChildAsUsual();
    void stop_whateverItDoes_isKilledWithItsGroup_data();
    void stop_whateverItDoes_isKilledWithItsGroup();
    void stop_atOnce_isStopped();
    void stop_afterTheEnd_changesNothing();
    void leader_endsByItself_takesItsGroupAlong();
    void leader_killedFromOutside_isAnEnd();
    void leader_crashes_isAnEnd();
    void destructor_whileRunning_killsAndReturns();
    void parent_killed_takesTheGroupAlong_data();
    void parent_killed_takesTheGroupAlong();
    void leader_waitingForItsChildren_findsNoOther();
    void fugitive_ofAnyKind_endsWithTheRun_data();
    void fugitive_ofAnyKind_endsWithTheRun();
    void fugitives_startedAllTheTime_end();
    void hidden_output_isDiscarded();

private:
    ProcessStart piece(const QString &name);
    ProcessStart script(const QByteArray &lines);
    /// The process whose id is in that file; 0 when there is none yet.
    pid_t noted(const char *name) const;
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QByteArray log() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_current;
};

void tst_ChildProcess::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_current = QDir::currentPath();
}

void tst_ChildProcess::cleanup() { QDir::setCurrent(m_current); }

ProcessStart tst_ChildProcess::piece(const QString &name)
{
    ProcessStart start;
    start.command.executable = StandInCompiler::path();
    start.command.arguments = {path(name), QStringLiteral("-O") + path(QStringLiteral("log"))};
    return start;
}

/// A compiler that is a shell script.
ProcessStart tst_ChildProcess::script(const QByteArray &lines)
{
    QFile file(path("compiler"));
    if (!file.open(QIODevice::WriteOnly) || file.write("#!/bin/sh\n" + lines) < 0)
        qFatal("cannot write the script");
    file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    ProcessStart start;
    start.command.executable = file.fileName();
    start.command.directory = m_folder->path();
    return start;
}

pid_t tst_ChildProcess::noted(const char *name) const
{
    QFile file(path(QLatin1String(name)));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray line = file.readLine();
    return line.endsWith('\n') ? line.trimmed().toInt() : 0;
}

QByteArray tst_ChildProcess::log() const
{
    QFile file(path(QStringLiteral("log")));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_ChildProcess::start_endsByItself_oneEnd()
{
    ChildProcess process;
    QSignalSpy started(&process, &ChildProcess::started);
    QSignalSpy ended(&process, &ChildProcess::ended);
    process.start(piece("logged.csd"));
    QVERIFY(!process.end());
    QTRY_COMPARE(ended.size(), 1);
    QCOMPARE(started.size(), 1);
    QCOMPARE(process.end(), ProcessEnd::Ended);
    QVERIFY(!isAlive(pids(path("logged.csd")).leader));
    process.stop();
    QCoreApplication::processEvents();
    QCOMPARE(ended.size(), 1);
}

void tst_ChildProcess::start_failingExitCode_isAnEndLikeAnyOther()
{
    ChildProcess process;
    process.start(piece("fails.csd"));
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    QCOMPARE(log(), QByteArray("this is the log\n"));
}

void tst_ChildProcess::start_directoryAndEnvironment_reachTheChild()
{
    qputenv("LC_ALL", "C.UTF-8");
    ProcessStart start = piece("lists.csd");
    start.command.directory = m_folder->path();
    start.command.environment = {{"SFDIR", "/some where"}, {"LC_ALL", std::nullopt}};
    ChildProcess process;
    process.start(start);
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    const QByteArrayList lines = log().split('\n');
    QVERIFY(lines.contains("SFDIR=/some where"));
    QVERIFY(lines.contains("directory " + QFile::encodeName(m_folder->path())));
    QVERIFY(lines.contains("leads its group"));
    QVERIFY(!log().contains("LC_ALL"));
}

void tst_ChildProcess::start_oddNames_areOneArgument()
{
    const QString name = QStringLiteral("-a; \"b\" $HOME *\n") + QChar(0xe8) + ".csd";
    ChildProcess process;
    process.start(piece(name));
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    QVERIFY(log().startsWith("argument " + path(name).toUtf8() + "\nargument -O"));
}

void tst_ChildProcess::start_cannot_oneEndThatSaysWhy_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<ProcessEnd>("end");
    QTest::newRow("gone") << "gone" << ProcessEnd::NotFound;
    QTest::newRow("empty") << "empty" << ProcessEnd::NotFound;
    QTest::newRow("bare name") << "bare" << ProcessEnd::NotFound;
    QTest::newRow("folder") << "folder" << ProcessEnd::StartFailed;
    QTest::newRow("not executable") << "text" << ProcessEnd::StartFailed;
    QTest::newRow("no program") << "garbage" << ProcessEnd::StartFailed;
    QTest::newRow("start directory gone") << "directory" << ProcessEnd::StartFailed;
}

void tst_ChildProcess::start_cannot_oneEndThatSaysWhy()
{
    QFETCH(QString, kind);
    QFile file(path("file"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("\x7f"
                                                          "ELF nonsense") > 0);
    file.close();
    const QHash<QString, QString> executables{{"gone", path("gone")},
                                              {"empty", QString()},
                                              {"bare", "no-such-compiler-anywhere"},
                                              {"folder", m_folder->path()},
                                              {"text", path("file")},
                                              {"garbage", path("file")},
                                              {"directory", StandInCompiler::path()}};
    if (kind == QLatin1String("garbage"))
        QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    ProcessStart start = piece("slow.csd");
    start.command.executable = executables.value(kind);
    if (kind == QLatin1String("directory"))
        start.command.directory = path("gone");
    ChildProcess process;
    QSignalSpy ended(&process, &ChildProcess::ended);
    QSignalSpy started(&process, &ChildProcess::started);
    process.start(start);
    QTRY_VERIFY(process.end());
    QTEST(*process.end(), "end");
    QCoreApplication::processEvents();
    QCOMPARE(ended.size(), 1);
    QCOMPARE(started.size(), 0);
}

void tst_ChildProcess::start_cannot_leavesNoHandle_data()
{
    QTest::addColumn<QString>("executable");
    QTest::addColumn<QString>("directory");
    QTest::newRow("bare name") << "no-such-compiler-anywhere" << QString();
    QTest::newRow("gone") << "/gone/compiler" << QString();
    QTest::newRow("folder") << "/" << QString();
    QTest::newRow("not executable") << "/proc/self/maps" << QString();
    QTest::newRow("start directory gone") << StandInCompiler::path() << "/gone";
}

void tst_ChildProcess::start_cannot_leavesNoHandle()
{
    QFETCH(QString, executable);
    QFETCH(QString, directory);
    const auto handles = [] {
        const QDir all(QStringLiteral("/proc/self/fd"));
        return all.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
    };
    const auto startBoth = [&] {
        ChildProcess process;
        process.start({{executable, {}, directory}});
        QTRY_VERIFY(process.end());
        QVERIFY(!StartDetached(executable, {}, directory));
    };
    CHECKED(startBoth()); // what stays open from the first start on is none of each
    const auto before = handles();
    CHECKED(startBoth());
    QCOMPARE(handles(), before);
}

void tst_ChildProcess::start_bareName_isFoundInTheSearchPath()
{
    const QByteArray before = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(QCoreApplication::applicationDirPath()) + ':' + before);
    ProcessStart start = piece("quiet.csd");
    start.command.executable = "stand_in_compiler";
    ChildProcess process;
    process.start(start);
    qputenv("PATH", before);
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
}

void tst_ChildProcess::start_relativePath_isFromTheCurrentDirectory()
{
    QVERIFY(QDir::setCurrent(QCoreApplication::applicationDirPath()));
    ProcessStart start = piece("quiet.csd");
    start.command.executable = "./stand_in_compiler";
    start.command.directory = m_folder->path();
    ChildProcess process;
    process.start(start);
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
}

/// A library of ours may have the signal ignored, which a child would inherit.
void tst_ChildProcess::start_brokenPipe_endsTheChildAsUsual()
{
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    ChildProcess process;
    process.start(script("sed -n 's/^SigIgn:[^0-9a-f]*//p' /proc/$$/status >log\n"));
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    std::signal(SIGPIPE, before);
    bool told = false;
    const quint64 ignored = log().trimmed().toULongLong(&told, 16);
    QVERIFY(told);
    QVERIFY(!(ignored >> (SIGPIPE - 1) & 1));
}

void tst_ChildProcess::stop_whateverItDoes_isKilledWithItsGroup_data()
{
    QTest::addColumn<QString>("behaviour");
    for (const char *behaviour : {"slow", "ignores", "forks"})
        QTest::newRow(behaviour) << behaviour;
}

void tst_ChildProcess::stop_whateverItDoes_isKilledWithItsGroup()
{
    QFETCH(QString, behaviour);
    const QString name = behaviour + ".csd";
    ChildProcess process;
    QSignalSpy ended(&process, &ChildProcess::ended);
    process.start(piece(name));
    QTRY_VERIFY(pids(path(name)).leader);
    const Pids left = pids(path(name));
    QVERIFY(isAlive(left.leader));
    QCOMPARE(left.child != 0, behaviour == QLatin1String("forks"));
    process.stop();
    QTRY_COMPARE(ended.size(), 1);
    QCOMPARE(process.end(), ProcessEnd::Stopped);
    QVERIFY(!isAlive(left.leader));
    QVERIFY(!left.child || !isAlive(left.child));
}

void tst_ChildProcess::stop_atOnce_isStopped()
{
    ChildProcess process;
    QSignalSpy ended(&process, &ChildProcess::ended);
    process.start(piece("slow.csd"));
    process.stop();
    process.stop();
    QTRY_COMPARE(ended.size(), 1);
    QCOMPARE(process.end(), ProcessEnd::Stopped);
    // Of what has left no trace there may be no process either.
    siginfo_t info{};
    QCOMPARE(::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT), -1);
}

void tst_ChildProcess::stop_afterTheEnd_changesNothing()
{
    ChildProcess process;
    process.stop();
    QVERIFY(!process.end());
    process.start(piece("quiet.csd"));
    QTRY_VERIFY(process.end());
    process.stop();
    QCOMPARE(process.end(), ProcessEnd::Ended);
}

void tst_ChildProcess::leader_endsByItself_takesItsGroupAlong()
{
    ChildProcess process;
    process.start(piece("leaves.csd"));
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    const pid_t child = pids(path("leaves.csd")).child;
    QVERIFY(child);
    QVERIFY(!isAlive(child));
}

void tst_ChildProcess::leader_killedFromOutside_isAnEnd()
{
    ChildProcess process;
    process.start(piece("forks.csd"));
    QTRY_VERIFY(pids(path("forks.csd")).child);
    const Pids left = pids(path("forks.csd"));
    QCOMPARE(::kill(left.leader, SIGKILL), 0);
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    QVERIFY(!isAlive(left.leader));
    QVERIFY(!isAlive(left.child));
}

void tst_ChildProcess::leader_crashes_isAnEnd()
{
    ChildProcess process;
    QSignalSpy ended(&process, &ChildProcess::ended);
    process.start(piece("crashes.csd"));
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    QCoreApplication::processEvents();
    QCOMPARE(ended.size(), 1);
}

void tst_ChildProcess::destructor_whileRunning_killsAndReturns()
{
    auto process = std::make_unique<ChildProcess>();
    QSignalSpy ended(process.get(), &ChildProcess::ended);
    process->start(piece("forks.csd"));
    QTRY_VERIFY(pids(path("forks.csd")).child);
    const Pids left = pids(path("forks.csd"));
    process.reset();
    QTRY_VERIFY(!isAlive(left.leader) && !isAlive(left.child));
    QVERIFY(!isAlive(left.leader));
    QVERIFY(!isAlive(left.child));
    QCOMPARE(ended.size(), 0);
}

void tst_ChildProcess::parent_killed_takesTheGroupAlong_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"slow.csd", "ignores.csd", "forks.csd"})
        QTest::newRow(name) << name;
}

void tst_ChildProcess::parent_killed_takesTheGroupAlong()
{
    QFETCH(QString, name);
    // A process of its own plays the program that is killed.
    const pid_t program = ::fork();
    if (program == 0) {
        ChildProcess process;
        process.start(piece(name));
        for (;;)
            ::pause();
    }
    QTRY_VERIFY(pids(path(name)).leader);
    const Pids compiler = pids(path(name));
    QVERIFY(isAlive(compiler.leader));
    QCOMPARE(::kill(program, SIGKILL), 0);
    QTRY_VERIFY(!isAlive(compiler.leader));
    if (compiler.child != 0)
        QTRY_VERIFY(!isAlive(compiler.child));
    QCOMPARE(::waitpid(program, nullptr, 0), program);
}

/// What watches over the group is not among them.
void tst_ChildProcess::leader_waitingForItsChildren_findsNoOther()
{
    ChildProcess process;
    process.start(piece("waits.csd"));
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    QCOMPARE(log(), QByteArray("no child is left\n"));
}

void tst_ChildProcess::fugitive_ofAnyKind_endsWithTheRun_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("way");
    const std::pair<const char *, QByteArray> kinds[] = {
        {"timeout", "timeout 300 sleep 300 & echo $! >fugitive\n"},
        {"setsid", "setsid sleep 300 & echo $! >fugitive\n"},
        {"set -m", "set -m; sleep 300 & echo $! >fugitive\n"},
        {"orphan", "(setsid sh -c 'echo $$ >fugitive; exec sleep 300' &)\n"},
    };
    for (const auto &[name, lines] : kinds) {
        const QByteArray ends = lines + "while [ ! -s fugitive ]; do sleep 0.01; done\n";
        for (const char *way : {"stop", "destroyed", "program killed", "leader killed"})
            QTest::addRow("%s, %s", name, way) << ends + "sleep 300\n" << way;
        QTest::addRow("%s, leader ends", name) << ends << "leader ends";
    }
}

/// What has left the process group or even the session of the compiler, or lost its parent.
void tst_ChildProcess::fugitive_ofAnyKind_endsWithTheRun()
{
    QFETCH(QByteArray, lines);
    QFETCH(QString, way);
    const ProcessStart start = script("echo $$ >leader\n" + lines);
    if (way == QLatin1String("program killed")) {
        const pid_t program = ::fork();
        if (program == 0) {
            ChildProcess process;
            process.start(start);
            for (;;)
                ::pause();
        }
        QTRY_VERIFY(noted("fugitive"));
        QCOMPARE(::kill(program, SIGKILL), 0);
        QCOMPARE(::waitpid(program, nullptr, 0), program);
    } else {
        auto process = std::make_unique<ChildProcess>();
        process->start(start);
        QTRY_VERIFY(noted("fugitive"));
        if (way == QLatin1String("stop"))
            process->stop();
        else if (way == QLatin1String("leader killed"))
            QCOMPARE(::kill(noted("leader"), SIGKILL), 0);
        if (way == QLatin1String("destroyed"))
            process.reset();
        else
            QTRY_COMPARE(process->end(),
                         way == QLatin1String("stop") ? ProcessEnd::Stopped : ProcessEnd::Ended);
    }
    QTRY_VERIFY(!isAlive(noted("fugitive")));
    QTRY_VERIFY(!isAlive(noted("leader")));
}

/// Each has ended before the next look, and has left another.
void tst_ChildProcess::fugitives_startedAllTheTime_end()
{
    ChildProcess process;
    process.start(script("cat >next <<'END'\n"
                         "echo $$ >fugitive\n"
                         "setsid sh next &\n"
                         "END\n"
                         "setsid sh next &\n"
                         "sleep 300\n"));
    QTRY_VERIFY(noted("fugitive"));
    process.stop();
    QTRY_COMPARE(process.end(), ProcessEnd::Stopped);
    const QByteArray last = QByteArray::number(noted("fugitive"));
    ChildProcess other; // in its time they would have started each other again and again
    other.start(script("for i in 1 2 3 4 5 6 7 8 9 10; do setsid true; done\n"));
    QTRY_VERIFY(other.end());
    QCOMPARE(QByteArray::number(noted("fugitive")), last);
}

void tst_ChildProcess::hidden_output_isDiscarded()
{
    // The flood goes to a pipe that nobody reads; a child that wrote there would never end.
    int ends[2];
    QCOMPARE(::pipe(ends), 0);
    const int before = ::dup(STDOUT_FILENO);
    ::dup2(ends[1], STDOUT_FILENO);
    ChildProcess process;
    process.start(piece("flood.csd"));
    ::dup2(before, STDOUT_FILENO);
    QTRY_COMPARE_WITH_TIMEOUT(process.end(), ProcessEnd::Ended, 30'000);
    for (const int descriptor : {ends[0], ends[1], before})
        ::close(descriptor);
}

ARDIPHON_TEST(tst_ChildProcess, QCoreApplication)
#include "tst_ChildProcess.moc"
