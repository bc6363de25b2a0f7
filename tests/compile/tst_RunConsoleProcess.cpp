#include "compile/CsdConsole.h"
#include "compile/FinishedText.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <csignal>
#include <unistd.h>

using namespace ardiphon;
using namespace StandInCompiler;

namespace {

const QString Log = QStringLiteral("this is the log\r\n");

/// What is shown for a run that left no log.
const QString NoLog = QStringLiteral("There is no log of this run: the compiler has written none.");

/// Waits without handling any event until the process is dead.
void waitForDeath(pid_t pid)
{
    while (isAlive(pid))
        ::usleep(1000);
}

/// A window without a console, as far as its runs know it.
struct SilentOwner
{
    QTemporaryDir folder;
    ScriptedDialogs dialogs;
    int beeps = 0;
    RunOwner owner{dialogs, RunSystem{[] { return qint64(5000); }, [this] { ++beeps; }}, nullptr};

    bool run(const QString &piece)
    {
        return RunConsoleProcess(owner, StandInCompiler::path(),
                                 folder.filePath(piece + QStringLiteral(".csd")), QString(),
                                 ShowCommand::Normal);
    }
};

} // namespace

class tst_RunConsoleProcess : public QObject
{
    Q_OBJECT

private slots:
    void run_progress_stepsOnceASecond();
    void run_progress_staysWithinASecond();
    void run_progress_keepsItsFirstTextAtSecondZero();
    void run_anyEnd_givesTheSameClosingSteps_data();
    void run_anyEnd_givesTheSameClosingSteps();
    void run_noLog_bannerInFrontOfProgress_data();
    void run_noLog_bannerInFrontOfProgress();
    void run_folderClearedAway_isMadeAgain();
    void run_folderThatCannotBeMade_saysWhy();
    void run_oldLog_isDeletedFirst();
    void run_logThatCannotBeDeleted_doesNoHarm();
    void run_leftoverOfItsGroup_isKilled();
    void stop_anyCompiler_isKilledAndSaidSo_data();
    void stop_anyCompiler_isKilledAndSaidSo();
    void stop_asTheCompilerEnds_isHonoured();
    void stop_beforeTheCompilerRuns_isHonoured();
    void stop_thenCompile_runsAgain();
    void start_fails_messageAndNothingElse_data();
    void start_fails_messageAndNothingElse();
    void nested_innerEndsFirst_bothClose();
    void nested_stop_endsBoth();
    void nested_stopAfterOuterEnded_isHonouredByBoth();
    void nested_innerCannotStart_outerGoesOn();
    void nested_innerCannotStart_earlierStopHolds();
    void close_anyWayDuringRun_leavesNothing_data();
    void close_anyWayDuringRun_leavesNothing();
    void close_duringNestedRuns_leavesNothing();
    void reentered_secondStartThenClose_innerFirstThenAll();
    void quit_duringRun_endsIt();
    void silentRun_end_showsAndDeletesNothing();
    void silentRun_stopAskedBefore_isNotTakenBack();
    void silentRun_stop_endsIt();
};

void tst_RunConsoleProcess::run_progress_stepsOnceASecond()
{
    CsdConsole console(QStringLiteral("slow"));
    qint64 tick = 0;
    console.clock = [&tick] { return tick += 999; }; // close to the next second at each look
    QStringList seen;
    console.noteTexts(seen);
    console.when([&] { return seen.size() >= 7; }, [&] { console.click("btnStop"); });
    console.click("Command2");
    QCOMPARE(seen.mid(0, 7), QStringList({"", "Compiling", "Compiling .", "Compiling ..",
                                          "Compiling ...", "Compiling", "Compiling ."}));
}

void tst_RunConsoleProcess::run_progress_staysWithinASecond()
{
    CsdConsole console(QStringLiteral("slow"));
    console.clock = [tick = qint64(8000)]() mutable { return tick < 8999 ? tick += 111 : tick; };
    QStringList seen;
    console.noteTexts(seen);
    console.whenRunning(QStringLiteral("slow"), [&] { console.click("btnStop"); });
    console.click("Command2");
    QCOMPARE(seen, QStringList({"", "Compiling", "Compiling .", StoppedText}));
}

void tst_RunConsoleProcess::run_progress_keepsItsFirstTextAtSecondZero()
{
    CsdConsole console(QStringLiteral("quiet"));
    console.clock = [] { return qint64(999); };
    console.dialogs.expect({NoLog});
    console.click("Command2");
    QCOMPARE(console.dialogs.verify(), QString());
    QCOMPARE(console.text(), finishedText(QStringLiteral("Compiling")));
}

void tst_RunConsoleProcess::run_anyEnd_givesTheSameClosingSteps_data()
{
    QTest::addColumn<QString>("piece");
    for (const char *piece : {"fails", "crashes", "leaves"})
        QTest::newRow(piece) << piece;
    QTest::newRow("killed from outside") << "slow";
}

void tst_RunConsoleProcess::run_anyEnd_givesTheSameClosingSteps()
{
    QFETCH(QString, piece);
    CsdConsole console(piece);
    if (piece == QLatin1String("slow"))
        console.whenRunning(piece, [&] { ::kill(console.pids(piece).leader, SIGKILL); });
    console.click("Command2");
    QCOMPARE(console.text(), finishedText(Log));
    QVERIFY(!console.button("btnStop")->isEnabled());
    QCOMPARE(console.beeps, 1);
}

void tst_RunConsoleProcess::run_noLog_bannerInFrontOfProgress_data()
{
    QTest::addColumn<QString>("piece");
    QTest::newRow("never written") << "quiet";
    QTest::newRow("deleted") << "deletes";
}

void tst_RunConsoleProcess::run_noLog_bannerInFrontOfProgress()
{
    QFETCH(QString, piece);
    CsdConsole console(piece);
    console.dialogs.expect({NoLog});
    console.click("Command2");
    QCOMPARE(console.text(), finishedText(QStringLiteral("Compiling .")));
    QCOMPARE(console.dialogs.verify(), QString());
    QVERIFY(QDir(console.config.RootPath).isEmpty());
}

void tst_RunConsoleProcess::run_folderClearedAway_isMadeAgain()
{
    CsdConsole console(QStringLiteral("logged"));
    QVERIFY(QDir().rmdir(console.config.RootPath));
    console.click("Command2");
    QCOMPARE(console.text(), finishedText(Log));
    QCOMPARE(console.dialogs.verify(), QString());
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                        QFile::WriteOther | QFile::ExeOther;
    QCOMPARE(QFile::permissions(console.config.RootPath) & others, QFile::Permissions());
}

void tst_RunConsoleProcess::run_folderThatCannotBeMade_saysWhy()
{
    CsdConsole console(QStringLiteral("quiet"));
    QVERIFY(QDir(console.folder.path()).removeRecursively());
    console.dialogs.expect(
        {QStringLiteral("There is no log of this run: the folder for it does not exist.")});
    console.click("Command2");
    QCOMPARE(console.text(), finishedText(QStringLiteral("Compiling .")));
    QCOMPARE(console.dialogs.verify(), QString());
}

void tst_RunConsoleProcess::run_oldLog_isDeletedFirst()
{
    CsdConsole console(QStringLiteral("logged"));
    console.click("Command2");
    QVERIFY(QFile::exists(console.logFile()));
    console.choose(QStringLiteral("quiet"));
    console.dialogs.expect({NoLog});
    console.click("Command2");
    QCOMPARE(console.dialogs.verify(), QString());
    QVERIFY(!QFile::exists(console.logFile()));
    QCOMPARE(console.text(), finishedText(QStringLiteral("Compiling .")));
}

void tst_RunConsoleProcess::run_logThatCannotBeDeleted_doesNoHarm()
{
    CsdConsole console(QStringLiteral("quiet"));
    QVERIFY(QDir().mkpath(console.logFile()));
    console.dialogs.expect({NoLog});
    console.click("Command2");
    QCOMPARE(console.dialogs.verify(), QString());
    QCOMPARE(console.text(), finishedText(QStringLiteral("Compiling .")));
}

void tst_RunConsoleProcess::run_leftoverOfItsGroup_isKilled()
{
    CsdConsole console(QStringLiteral("leaves"));
    console.click("Command2");
    const Pids left = console.pids(QStringLiteral("leaves"));
    QVERIFY(left.child);
    QTRY_VERIFY(!isAlive(left.child));
}

void tst_RunConsoleProcess::stop_anyCompiler_isKilledAndSaidSo_data()
{
    QTest::addColumn<QString>("piece");
    for (const char *piece : {"slow", "ignores", "forks"})
        QTest::newRow(piece) << piece;
}

void tst_RunConsoleProcess::stop_anyCompiler_isKilledAndSaidSo()
{
    QFETCH(QString, piece);
    CsdConsole console(piece);
    console.whenRunning(piece, [&] { console.click("btnStop"); });
    console.click("Command2");
    const Pids left = console.pids(piece);
    QVERIFY(!isAlive(left.leader));
    QVERIFY(!left.child || !isAlive(left.child));
    QCOMPARE(console.text(), StoppedText);
    QVERIFY(!console.button("btnStop")->isEnabled());
    QVERIFY(console.form->isVisible());
    QCOMPARE(console.form->focusWidget(), console.output);
    QCOMPARE(console.beeps, 0);
}

void tst_RunConsoleProcess::stop_asTheCompilerEnds_isHonoured()
{
    CsdConsole console(QStringLiteral("slow"));
    console.whenRunning(QStringLiteral("slow"), [&] {
        const pid_t leader = console.pids(QStringLiteral("slow")).leader;
        ::kill(leader, SIGKILL);
        waitForDeath(leader);
        console.click("btnStop");
    });
    console.click("Command2");
    QCOMPARE(console.text(), StoppedText);
    QCOMPARE(console.beeps, 0);
}

void tst_RunConsoleProcess::stop_beforeTheCompilerRuns_isHonoured()
{
    CsdConsole console(QStringLiteral("slow"));
    console.when([] { return true; }, [&] { console.click("btnStop"); });
    console.click("Command2");
    QCOMPARE(console.text(), StoppedText);
    QVERIFY(!console.button("btnStop")->isEnabled());
}

void tst_RunConsoleProcess::stop_thenCompile_runsAgain()
{
    CsdConsole console(QStringLiteral("slow"));
    console.whenRunning(QStringLiteral("slow"), [&] { console.click("btnStop"); });
    console.click("Command2");
    console.choose(QStringLiteral("logged"));
    console.click("Command2");
    QCOMPARE(console.text(), finishedText(Log));
}

void tst_RunConsoleProcess::start_fails_messageAndNothingElse_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("message");
    QTest::newRow("gone") << "gone"
                          << "File was not found.";
    QTest::newRow("folder") << "folder"
                            << "An unexpected error occured.";
    QTest::newRow("not executable") << "text"
                                    << "An unexpected error occured.";
}

void tst_RunConsoleProcess::start_fails_messageAndNothingElse()
{
    QFETCH(QString, kind);
    QFETCH(QString, message);
    CsdConsole console(QStringLiteral("logged"));
    console.click("Command2");
    const QString before = console.text();
    QFile file(console.folder.filePath(QStringLiteral("text")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(QDir(console.folder.path()).mkdir(QStringLiteral("folder")));
    console.config.FileCSound = console.folder.filePath(kind);
    console.dialogs.expect({message, ProgramTitle, MessageIcon::None, MessageButtons::Ok});
    console.click("Command2");
    QCOMPARE(console.dialogs.verify(), QString());
    QCOMPARE(console.text(), before);
    QVERIFY(console.button("btnStop")->isEnabled());
    QCOMPARE(console.form->focusWidget(), console.output);
    QCOMPARE(console.beeps, 1); // of the first run
}

void tst_RunConsoleProcess::nested_innerEndsFirst_bothClose()
{
    CsdConsole console(QStringLiteral("slow"));
    const QString slow = QStringLiteral("slow");
    bool innerWasFirst = false;
    console.whenRunning(slow, [&] {
        console.choose(QStringLiteral("logged"));
        console.click("Command2");
        innerWasFirst = isAlive(console.pids(slow).leader) && console.text() == finishedText(Log) &&
                        !console.button("btnStop")->isEnabled();
        ::kill(console.pids(slow).leader, SIGKILL);
    });
    console.click("Command2");
    QVERIFY(innerWasFirst);
    QCOMPARE(console.text(), finishedText(Log)); // the one log of both
    QCOMPARE(console.beeps, 2);
}

void tst_RunConsoleProcess::nested_stop_endsBoth()
{
    CsdConsole console(QStringLiteral("slow"));
    console.whenRunning(QStringLiteral("slow"), [&] {
        console.choose(QStringLiteral("ignores"));
        console.whenRunning(QStringLiteral("ignores"), [&] { console.click("btnStop"); });
        console.click("Command2");
    });
    console.click("Command2");
    QVERIFY(!isAlive(console.pids(QStringLiteral("slow")).leader));
    QVERIFY(!isAlive(console.pids(QStringLiteral("ignores")).leader));
    QCOMPARE(console.text(), StoppedText);
    QCOMPARE(console.beeps, 0);
}

void tst_RunConsoleProcess::nested_stopAfterOuterEnded_isHonouredByBoth()
{
    CsdConsole console(QStringLiteral("slow"));
    console.whenRunning(QStringLiteral("slow"), [&] {
        const pid_t outer = console.pids(QStringLiteral("slow")).leader;
        ::kill(outer, SIGKILL);
        console.when([=] { return !isAlive(outer); }, [&] { console.click("btnStop"); });
        console.choose(QStringLiteral("ignores"));
        console.click("Command2");
    });
    console.click("Command2");
    QCOMPARE(console.text(), StoppedText);
    QCOMPARE(console.beeps, 0);
}

void tst_RunConsoleProcess::nested_innerCannotStart_outerGoesOn()
{
    CsdConsole console(QStringLiteral("slow"));
    console.dialogs.expect(
        {QStringLiteral("File was not found."), ProgramTitle, MessageIcon::None});
    bool goesOn = false;
    console.whenRunning(QStringLiteral("slow"), [&] {
        console.config.FileCSound = QStringLiteral("/gone");
        console.click("Command2");
        goesOn = isAlive(console.pids(QStringLiteral("slow")).leader) &&
                 console.text() == QStringLiteral("Compiling .");
        console.click("btnStop");
    });
    console.click("Command2");
    QVERIFY(goesOn);
    QCOMPARE(console.text(), StoppedText);
    QCOMPARE(console.dialogs.verify(), QString());
}

void tst_RunConsoleProcess::nested_innerCannotStart_earlierStopHolds()
{
    CsdConsole console(QStringLiteral("slow"));
    console.dialogs.expect(
        {QStringLiteral("File was not found."), ProgramTitle, MessageIcon::None});
    console.whenRunning(QStringLiteral("slow"), [&] {
        console.config.FileCSound = QStringLiteral("/gone");
        console.click("btnStop");
        console.click("Command2"); // before the outer run has heard of the stop
        console.when([&] { return console.text() == StoppedText; }, [] {});
    });
    console.click("Command2");
    QCOMPARE(console.text(), StoppedText);
    QCOMPARE(console.dialogs.verify(), QString());
}

void tst_RunConsoleProcess::close_anyWayDuringRun_leavesNothing_data()
{
    QTest::addColumn<QString>("piece");
    QTest::addColumn<QString>("way");
    for (const char *piece : {"slow", "ignores", "forks", "stubborn"})
        for (const char *way : {"Command1", "close", "reject", "done"})
            QTest::addRow("%s, %s", piece, way) << piece << way;
}

void tst_RunConsoleProcess::close_anyWayDuringRun_leavesNothing()
{
    QFETCH(QString, piece);
    QFETCH(QString, way);
    CsdConsole console(piece);
    console.whenRunning(piece, [&] {
        if (way == QLatin1String("Command1"))
            console.click("Command1");
        else if (way == QLatin1String("close"))
            QVERIFY(console.form->close());
        else if (way == QLatin1String("reject"))
            console.form->reject();
        else
            console.form->done(0);
        QVERIFY(!console.form->isVisible());
    });
    CHECKED(console.click("Command2"));
    const Pids left = console.pids(piece);
    QVERIFY(left.leader);
    QVERIFY(!isAlive(left.leader));
    QVERIFY(!left.child || !isAlive(left.child));
    QVERIFY(!QFile::exists(console.logFile()));
    QCOMPARE(console.beeps, 0);
    QCOMPARE(console.dialogs.verify(), QString());
}

void tst_RunConsoleProcess::close_duringNestedRuns_leavesNothing()
{
    CsdConsole console(QStringLiteral("stubborn"));
    console.whenRunning(QStringLiteral("stubborn"), [&] {
        console.choose(QStringLiteral("forks"));
        console.whenRunning(QStringLiteral("forks"), [&] { console.form->close(); });
        console.click("Command2");
    });
    console.click("Command2");
    QVERIFY(!isAlive(console.pids(QStringLiteral("stubborn")).leader));
    QVERIFY(!isAlive(console.pids(QStringLiteral("forks")).leader));
    QTRY_VERIFY(!isAlive(console.pids(QStringLiteral("forks")).child));
    QVERIFY(!QFile::exists(console.logFile()));
}

void tst_RunConsoleProcess::reentered_secondStartThenClose_innerFirstThenAll()
{
    CsdConsole console(QStringLiteral("slow"));
    const auto running = [&](const char *piece) {
        return isAlive(console.pids(QLatin1String(piece)).leader);
    };
    QStringList order;
    console.whenRunning(QStringLiteral("slow"), [&] {
        console.choose(QStringLiteral("forks"));
        console.whenRunning(QStringLiteral("forks"), [&] {
            order.append(QStringLiteral("close"));
            QVERIFY(console.form->close());
            QVERIFY(running("slow") && running("forks")); // neither call has control yet
        });
        CHECKED(console.click("Command2"));
        order.append(QStringLiteral("inner"));
        QVERIFY(running("slow") && !running("forks"));
        console.choose(QStringLiteral("logged")); // the closed window starts nothing more
        console.click("Command2");
        QVERIFY(!console.pids(QStringLiteral("logged")).leader);
    });
    CHECKED(console.click("Command2"));
    order.append(QStringLiteral("outer"));
    QCOMPARE(order, QStringList({"close", "inner", "outer"}));
    QVERIFY(!running("slow"));
    QVERIFY(!QFile::exists(console.logFile()));
    QCOMPARE(console.text(), StoppedText);
    QCOMPARE(console.beeps, 0);
    QCOMPARE(console.dialogs.verify(), QString());
}

void tst_RunConsoleProcess::quit_duringRun_endsIt()
{
    CsdConsole console(QStringLiteral("forks"));
    console.whenRunning(QStringLiteral("forks"), [] { QCoreApplication::exit(); });
    QTimer::singleShot(0, console.form.get(), [&] { console.click("Command2"); });
    QCoreApplication::exec();
    const Pids left = console.pids(QStringLiteral("forks"));
    QVERIFY(left.leader);
    QTRY_VERIFY(!isAlive(left.leader));
    QTRY_VERIFY(!isAlive(left.child));
}

void tst_RunConsoleProcess::silentRun_end_showsAndDeletesNothing()
{
    SilentOwner silent;
    silent.owner.compileLogFile = silent.folder.filePath(QStringLiteral("tmp.txt"));
    QFile log(silent.owner.compileLogFile);
    QVERIFY(log.open(QIODevice::WriteOnly));
    QVERIFY(silent.run(QStringLiteral("quiet")));
    QVERIFY(log.exists());
    QCOMPARE(silent.beeps, 0);
    QCOMPARE(silent.owner.CompileStartTick, 0);
}

void tst_RunConsoleProcess::silentRun_stopAskedBefore_isNotTakenBack()
{
    SilentOwner silent;
    silent.owner.requestStop();
    QVERIFY(!silent.run(QStringLiteral("slow")));
    QVERIFY(silent.owner.StopRequested);
}

void tst_RunConsoleProcess::silentRun_stop_endsIt()
{
    SilentOwner silent;
    const QString piece = silent.folder.filePath(QStringLiteral("slow.csd"));
    QTimer stop;
    connect(&stop, &QTimer::timeout, this, [&] {
        if (pids(piece).leader)
            silent.owner.requestStop();
    });
    stop.start(1);
    QVERIFY(!silent.run(QStringLiteral("slow")));
    QVERIFY(!isAlive(pids(piece).leader));
}

ARDIPHON_TEST(tst_RunConsoleProcess, QApplication)
#include "tst_RunConsoleProcess.moc"
