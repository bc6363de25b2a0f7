#include "app/ConfigurationBlock.h"
#include "compile/CompileRules.h"
#include "compile/ui/CompilerOutput.h"
#include "compile/ui/FormCSoundCSD.h"
#include "support/ScriptedDialogs.h"
#include "support/StandInCompiler.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

#include <csignal>
#include <memory>
#include <sys/wait.h>

using namespace ardiphon;
using namespace StandInCompiler;

namespace {

const QString Log = QStringLiteral("this is the log\r\n");

/// The text of a finished run that took under half a second.
QString finishedText(const QString &log) { return bannerText(0) + logHeading() + log; }

/// The console over a folder of its own, with a beep and a clock that tests can look at.
struct Console
{
    explicit Console(const QString &piece)
    {
        QDir(folder.path()).mkdir(QStringLiteral("root"));
        config.RootPath = folder.filePath(QStringLiteral("root/"));
        config.FileCSound = StandInCompiler::path();
        choose(piece);
        form = std::make_unique<FormCSoundCSD>(
            config, dialogs, nullptr, RunSystem{[this] { return clock(); }, [this] { ++beeps; }});
        form->show();
        output = form->findChild<CompilerOutput *>(QStringLiteral("TxtOutputs"));
    }

    void choose(const QString &piece)
    {
        config.CSDFileName = folder.filePath(piece + QStringLiteral(".csd"));
    }
    QPushButton *button(const char *name) const
    {
        return form->findChild<QPushButton *>(QLatin1String(name));
    }
    void click(const char *name) const { QTest::mouseClick(button(name), Qt::LeftButton); }
    QString text() const { return output->text(); }
    Pids pids(const QString &piece) const
    {
        return StandInCompiler::pids(folder.filePath(piece + QStringLiteral(".csd")));
    }
    QString logFile() const { return CompileLogFile(config.RootPath); }

    /// Does \a action once, from the event loop, as soon as \a condition holds: this is how a user
    /// acts while a click on "&Compile" has not returned yet.
    void when(std::function<bool()> condition, std::function<void()> action)
    {
        auto *timer = new QTimer(form.get());
        QObject::connect(
            timer, &QTimer::timeout, form.get(), [=, this, limit = QDeadlineTimer(30'000)] {
                if (!condition() && !limit.hasExpired())
                    return;
                timer->stop();
                if (condition())
                    return action();
                QTest::qFail("what the test waited for never came", __FILE__, __LINE__);
                form->reject();
            });
        timer->start(1);
    }
    void whenRunning(const QString &piece, std::function<void()> action)
    {
        const auto running = [=, this] {
            return pids(piece).leader != 0 && text().startsWith(QLatin1String("Compiling"));
        };
        when(running, std::move(action));
    }

    QTemporaryDir folder;
    ConfigurationBlock config;
    ScriptedDialogs dialogs;
    std::function<qint64()> clock = [] { return qint64(5000); };
    int beeps = 0;
    std::unique_ptr<FormCSoundCSD> form;
    CompilerOutput *output = nullptr;
};

/// Waits without handling any event until the process is dead; it is not collected yet.
void waitForDeath(pid_t pid)
{
    siginfo_t info{};
    ::waitid(P_PID, id_t(pid), &info, WEXITED | WNOWAIT);
}

} // namespace

class tst_FormCSoundCSD : public QObject
{
    Q_OBJECT

private slots:
    void opened_window_waits();
    void opened_stopClicked_onlyDisablesIt();
    void run_progress_stepsOnceASecond();
    void run_progress_staysWithinASecond();
    void run_progress_keepsItsFirstTextAtSecondZero();
    void run_state_isRunning();
    void run_end_showsBannerAndLog();
    void run_end_coloursAndAlignment();
    void run_end_elapsedTime();
    void run_anyEnd_givesTheSameClosingSteps_data();
    void run_anyEnd_givesTheSameClosingSteps();
    void run_noLog_bannerInFrontOfProgress_data();
    void run_noLog_bannerInFrontOfProgress();
    void run_escapesInLog_areNotShown();
    void run_hugeLog_isShownWhole();
    void run_compiler_getsParametersDirectoryAndEnvironment();
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
    void nested_innerCannotStart_outerGoesOn();
    void close_anyWayDuringRun_leavesNothing_data();
    void close_anyWayDuringRun_leavesNothing();
    void close_duringNestedRuns_leavesNothing();
    void close_afterRun_deletesLog();
    void keys_escapeAndEnter_doNothing();
    void keys_mnemonics_pressButtons();
    void quit_duringRun_endsIt();
    void realCompiler_tinyPiece_logsAndWrites();
};

void tst_FormCSoundCSD::opened_window_waits()
{
    Console console(QStringLiteral("logged"));
    QCOMPARE(console.form->objectName(), QStringLiteral("FormCSoundCSD"));
    QCOMPARE(console.form->windowTitle(), QStringLiteral("CSound Console Compiler"));
    QCOMPARE(console.button("Command2")->text(), QStringLiteral("&Compile"));
    QCOMPARE(console.button("Command1")->text(), QStringLiteral("E&xit"));
    QCOMPARE(console.button("btnStop")->text(), QStringLiteral("&Stop Compiler"));
    QVERIFY(console.button("btnStop")->isEnabled());
    QCOMPARE(console.text(), QString());
    QCOMPARE(console.output->font().family(), QStringLiteral("Courier New"));
    QCOMPARE(console.output->palette().color(QPalette::Base), QColor(Qt::white));
    QCOMPARE(console.output->palette().color(QPalette::Text), QColor(Qt::black));
    QCoreApplication::processEvents();
    QCOMPARE(console.pids(QStringLiteral("logged")).leader, 0);
}

void tst_FormCSoundCSD::opened_stopClicked_onlyDisablesIt()
{
    Console console(QStringLiteral("logged"));
    console.click("btnStop");
    QVERIFY(!console.button("btnStop")->isEnabled());
    QCOMPARE(console.text(), QString());
    console.click("Command2"); // the run takes the request back
    QCOMPARE(console.text(), finishedText(Log));
}

void tst_FormCSoundCSD::run_progress_stepsOnceASecond()
{
    Console console(QStringLiteral("slow"));
    qint64 tick = 0;
    console.clock = [&tick] { return tick += 999; }; // close to the next second at each look
    QStringList seen;
    connect(console.output, &QPlainTextEdit::textChanged, console.form.get(),
            [&] { seen.append(console.text()); });
    console.when([&] { return seen.size() >= 7; }, [&] { console.click("btnStop"); });
    console.click("Command2");
    QCOMPARE(seen.mid(0, 7), QStringList({"", "Compiling", "Compiling .", "Compiling ..",
                                          "Compiling ...", "Compiling", "Compiling ."}));
}

void tst_FormCSoundCSD::run_progress_staysWithinASecond()
{
    Console console(QStringLiteral("slow"));
    console.clock = [tick = qint64(8000)]() mutable { return tick < 8999 ? tick += 111 : tick; };
    QStringList seen;
    connect(console.output, &QPlainTextEdit::textChanged, console.form.get(),
            [&] { seen.append(console.text()); });
    console.whenRunning(QStringLiteral("slow"), [&] { console.click("btnStop"); });
    console.click("Command2");
    QCOMPARE(seen, QStringList({"", "Compiling", "Compiling .", StoppedText}));
}

void tst_FormCSoundCSD::run_progress_keepsItsFirstTextAtSecondZero()
{
    Console console(QStringLiteral("quiet"));
    console.clock = [] { return qint64(999); };
    console.click("Command2");
    QCOMPARE(console.text(), finishedText(QStringLiteral("Compiling")));
}

void tst_FormCSoundCSD::run_state_isRunning()
{
    Console console(QStringLiteral("slow"));
    console.click("btnStop");
    QString shown;
    QStringList enabled;
    console.whenRunning(QStringLiteral("slow"), [&] {
        shown = console.text();
        for (const auto *button : console.form->findChildren<QPushButton *>())
            if (button->isEnabled())
                enabled.append(button->objectName());
        console.click("btnStop");
    });
    console.click("Command2");
    QCOMPARE(shown, QStringLiteral("Compiling ."));
    QCOMPARE(enabled, QStringList({"Command2", "btnStop", "Command1"}));
}

void tst_FormCSoundCSD::run_end_showsBannerAndLog()
{
    Console console(QStringLiteral("logged"));
    console.click("Command2");
    QCOMPARE(console.text(), finishedText(Log));
    QVERIFY(!console.button("btnStop")->isEnabled());
    QVERIFY(console.button("Command2")->isEnabled());
    QCOMPARE(console.form->focusWidget(), console.output);
    QCOMPARE(console.output->textCursor().position(), 0);
    QCOMPARE(console.beeps, 1);
    QCOMPARE(console.dialogs.verify(), QString());
}

void tst_FormCSoundCSD::run_end_coloursAndAlignment()
{
    Console console(QStringLiteral("logged"));
    console.click("Command2");
    QCoreApplication::processEvents();
    for (QTextBlock block = console.output->document()->begin(); block.isValid();
         block = block.next()) {
        const int number = block.blockNumber();
        const bool inBanner = number < 4;
        QCOMPARE(block.blockFormat().alignment() == Qt::AlignHCenter, inBanner);
        QCOMPARE(block.layout()->lineAt(0).x() > 20, inBanner); // and it is drawn so
        if (block.begin() == block.end())
            continue;
        const QBrush brush = block.begin().fragment().charFormat().foreground();
        if (number == 6)
            QCOMPARE(brush.color(), QColor(200, 0, 0));
        else
            QCOMPARE(brush.color(), inBanner ? QColor(0, 150, 0) : QColor(Qt::black));
    }
    QCOMPARE(console.output->document()->findBlockByNumber(7).text(),
             QStringLiteral("this is the log"));
}

void tst_FormCSoundCSD::run_end_elapsedTime()
{
    Console console(QStringLiteral("logged"));
    qint64 tick = 5000;
    console.clock = [&tick] { return tick; };
    connect(console.output, &QPlainTextEdit::textChanged, console.form.get(),
            [&] { tick = 130'000; });
    console.click("Command2");
    QVERIFY(console.text().contains(QStringLiteral("Elapsed time (mm:ss) -> 02:05 \r\n")));
}

void tst_FormCSoundCSD::run_anyEnd_givesTheSameClosingSteps_data()
{
    QTest::addColumn<QString>("piece");
    for (const char *piece : {"fails", "crashes", "leaves"})
        QTest::newRow(piece) << piece;
    QTest::newRow("killed from outside") << "slow";
}

void tst_FormCSoundCSD::run_anyEnd_givesTheSameClosingSteps()
{
    QFETCH(QString, piece);
    Console console(piece);
    if (piece == QLatin1String("slow"))
        console.whenRunning(piece, [&] { ::kill(console.pids(piece).leader, SIGKILL); });
    console.click("Command2");
    QCOMPARE(console.text(), finishedText(Log));
    QVERIFY(!console.button("btnStop")->isEnabled());
    QCOMPARE(console.beeps, 1);
}

void tst_FormCSoundCSD::run_noLog_bannerInFrontOfProgress_data()
{
    QTest::addColumn<QString>("piece");
    QTest::newRow("never written") << "quiet";
    QTest::newRow("deleted") << "deletes";
}

void tst_FormCSoundCSD::run_noLog_bannerInFrontOfProgress()
{
    QFETCH(QString, piece);
    Console console(piece);
    console.click("Command2");
    QCOMPARE(console.text(), finishedText(QStringLiteral("Compiling .")));
}

void tst_FormCSoundCSD::run_escapesInLog_areNotShown()
{
    Console console(QStringLiteral("escapes"));
    console.click("Command2");
    QCOMPARE(console.text(), finishedText(QStringLiteral("red and nothing\r\nnext\r\n")));
}

void tst_FormCSoundCSD::run_hugeLog_isShownWhole()
{
    Console console(QStringLiteral("flood"));
    console.click("Command2");
    const QTextDocument *shown = console.output->document();
    QCOMPARE(console.text().count(u'\n'), 7 + 200'000);
    QTRY_COMPARE_WITH_TIMEOUT(shown->blockCount(), 7 + 200'000 + 1, 60'000);
    QVERIFY(shown->findBlockByNumber(7).text().startsWith(QLatin1String("line 1 of")));
    QVERIFY(shown->lastBlock().previous().text().startsWith(QLatin1String("line 200000 of")));
}

void tst_FormCSoundCSD::run_compiler_getsParametersDirectoryAndEnvironment()
{
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("SFDIR");
    Console console(QStringLiteral("-my \"own\"; $HOME *"));
    console.form.reset(); // the window is opened for one document
    console.form = std::make_unique<FormCSoundCSD>(console.config, console.dialogs, nullptr);
    console.output = console.form->findChild<CompilerOutput *>(QStringLiteral("TxtOutputs"));
    console.click("Command2");
    const QStringList lines = console.text().split(QStringLiteral("\r\n"));
    QCOMPARE(lines.mid(7, 2), QStringList({QStringLiteral("argument ") + console.config.CSDFileName,
                                           QStringLiteral("argument -O") + console.logFile()}));
    QVERIFY(lines.contains(QStringLiteral("SFDIR=") + console.folder.path()));
    QVERIFY(lines.contains(QStringLiteral("LC_MESSAGES=C")));
    QVERIFY(lines.contains(QStringLiteral("LANG=C.UTF-8")));
    QVERIFY(!console.text().contains(QStringLiteral("LC_ALL")));
    QVERIFY(lines.contains(QStringLiteral("directory ") + QCoreApplication::applicationDirPath()));
}

void tst_FormCSoundCSD::run_oldLog_isDeletedFirst()
{
    Console console(QStringLiteral("logged"));
    console.click("Command2");
    QVERIFY(QFile::exists(console.logFile()));
    console.choose(QStringLiteral("quiet"));
    console.click("Command2");
    QVERIFY(!QFile::exists(console.logFile()));
    QCOMPARE(console.text(), finishedText(QStringLiteral("Compiling .")));
}

void tst_FormCSoundCSD::run_logThatCannotBeDeleted_doesNoHarm()
{
    Console console(QStringLiteral("quiet"));
    QVERIFY(QDir().mkpath(console.logFile()));
    console.click("Command2");
    QCOMPARE(console.text(), finishedText(QStringLiteral("Compiling .")));
}

void tst_FormCSoundCSD::run_leftoverOfItsGroup_isKilled()
{
    Console console(QStringLiteral("leaves"));
    console.click("Command2");
    const Pids left = console.pids(QStringLiteral("leaves"));
    QVERIFY(left.child);
    QTRY_VERIFY(!isAlive(left.child));
}

void tst_FormCSoundCSD::stop_anyCompiler_isKilledAndSaidSo_data()
{
    QTest::addColumn<QString>("piece");
    for (const char *piece : {"slow", "ignores", "forks"})
        QTest::newRow(piece) << piece;
}

void tst_FormCSoundCSD::stop_anyCompiler_isKilledAndSaidSo()
{
    QFETCH(QString, piece);
    Console console(piece);
    console.whenRunning(piece, [&] { console.click("btnStop"); });
    console.click("Command2");
    const Pids left = console.pids(piece);
    QVERIFY(!isOurChild(left.leader));
    QTRY_VERIFY(!left.child || !isAlive(left.child));
    QCOMPARE(console.text(), StoppedText);
    QVERIFY(!console.button("btnStop")->isEnabled());
    QVERIFY(console.form->isVisible());
    QCOMPARE(console.form->focusWidget(), console.output);
    QCOMPARE(console.beeps, 0);
}

void tst_FormCSoundCSD::stop_asTheCompilerEnds_isHonoured()
{
    Console console(QStringLiteral("slow"));
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

void tst_FormCSoundCSD::stop_beforeTheCompilerRuns_isHonoured()
{
    Console console(QStringLiteral("slow"));
    console.when([] { return true; }, [&] { console.click("btnStop"); });
    console.click("Command2");
    QCOMPARE(console.text(), StoppedText);
    QVERIFY(!console.button("btnStop")->isEnabled());
}

void tst_FormCSoundCSD::stop_thenCompile_runsAgain()
{
    Console console(QStringLiteral("slow"));
    console.whenRunning(QStringLiteral("slow"), [&] { console.click("btnStop"); });
    console.click("Command2");
    console.choose(QStringLiteral("logged"));
    console.click("Command2");
    QCOMPARE(console.text(), finishedText(Log));
}

void tst_FormCSoundCSD::start_fails_messageAndNothingElse_data()
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

void tst_FormCSoundCSD::start_fails_messageAndNothingElse()
{
    QFETCH(QString, kind);
    QFETCH(QString, message);
    Console console(QStringLiteral("logged"));
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

void tst_FormCSoundCSD::nested_innerEndsFirst_bothClose()
{
    Console console(QStringLiteral("slow"));
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

void tst_FormCSoundCSD::nested_stop_endsBoth()
{
    Console console(QStringLiteral("slow"));
    console.whenRunning(QStringLiteral("slow"), [&] {
        console.choose(QStringLiteral("ignores"));
        console.whenRunning(QStringLiteral("ignores"), [&] { console.click("btnStop"); });
        console.click("Command2");
    });
    console.click("Command2");
    QVERIFY(!isOurChild(console.pids(QStringLiteral("slow")).leader));
    QVERIFY(!isOurChild(console.pids(QStringLiteral("ignores")).leader));
    QCOMPARE(console.text(), StoppedText);
    QCOMPARE(console.beeps, 0);
}

void tst_FormCSoundCSD::nested_innerCannotStart_outerGoesOn()
{
    Console console(QStringLiteral("slow"));
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

void tst_FormCSoundCSD::close_anyWayDuringRun_leavesNothing_data()
{
    QTest::addColumn<QString>("piece");
    QTest::addColumn<QString>("way");
    for (const char *piece : {"slow", "ignores", "forks", "stubborn"})
        for (const char *way : {"Command1", "close", "reject", "done"})
            QTest::addRow("%s, %s", piece, way) << piece << way;
}

void tst_FormCSoundCSD::close_anyWayDuringRun_leavesNothing()
{
    QFETCH(QString, piece);
    QFETCH(QString, way);
    Console console(piece);
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
    console.click("Command2");
    const Pids left = console.pids(piece);
    QVERIFY(left.leader);
    QVERIFY(!isOurChild(left.leader));
    QTRY_VERIFY(!left.child || !isAlive(left.child));
    QVERIFY(!QFile::exists(console.logFile()));
    QCOMPARE(console.beeps, 0);
    QCOMPARE(console.dialogs.verify(), QString());
}

void tst_FormCSoundCSD::close_duringNestedRuns_leavesNothing()
{
    Console console(QStringLiteral("stubborn"));
    console.whenRunning(QStringLiteral("stubborn"), [&] {
        console.choose(QStringLiteral("forks"));
        console.whenRunning(QStringLiteral("forks"), [&] { console.form->close(); });
        console.click("Command2");
    });
    console.click("Command2");
    QVERIFY(!isOurChild(console.pids(QStringLiteral("stubborn")).leader));
    QVERIFY(!isOurChild(console.pids(QStringLiteral("forks")).leader));
    QTRY_VERIFY(!isAlive(console.pids(QStringLiteral("forks")).child));
    QVERIFY(!QFile::exists(console.logFile()));
}

void tst_FormCSoundCSD::close_afterRun_deletesLog()
{
    Console console(QStringLiteral("logged"));
    console.click("Command2");
    QVERIFY(QFile::exists(console.logFile()));
    console.click("Command1");
    QVERIFY(!console.form->isVisible());
    QVERIFY(!QFile::exists(console.logFile()));
}

void tst_FormCSoundCSD::keys_escapeAndEnter_doNothing()
{
    Console console(QStringLiteral("logged"));
    console.click("Command2");
    const QString shown = console.text();
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(console.output, key);
        QTest::keyClick(console.form.get(), key);
    }
    QTest::keyClick(console.button("Command2"), Qt::Key_Escape);
    QVERIFY(console.form->isVisible());
    QCOMPARE(console.text(), shown);
    QCOMPARE(console.beeps, 1);
}

void tst_FormCSoundCSD::keys_mnemonics_pressButtons()
{
    Console console(QStringLiteral("logged"));
    console.form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(console.form.get()));
    QTest::keyClick(console.form.get(), Qt::Key_C, Qt::AltModifier);
    QTRY_COMPARE(console.text(), finishedText(Log));
    QTest::keyClick(console.form.get(), Qt::Key_X, Qt::AltModifier);
    QTRY_VERIFY(!console.form->isVisible());
}

void tst_FormCSoundCSD::quit_duringRun_endsIt()
{
    Console console(QStringLiteral("forks"));
    console.whenRunning(QStringLiteral("forks"), [] { QCoreApplication::exit(); });
    QTimer::singleShot(0, console.form.get(), [&] { console.click("Command2"); });
    QCoreApplication::exec();
    const Pids left = console.pids(QStringLiteral("forks"));
    QVERIFY(left.leader);
    QTRY_VERIFY(!isOurChild(left.leader));
    QTRY_VERIFY(!isAlive(left.child));
}

void tst_FormCSoundCSD::realCompiler_tinyPiece_logsAndWrites()
{
    Console console(QStringLiteral("my piece è"));
    console.config.FileCSound = QStandardPaths::findExecutable(QStringLiteral("csound"));
    QVERIFY2(!console.config.FileCSound.isEmpty(), "csound is not installed");
    QFile piece(console.config.CSDFileName);
    QVERIFY(piece.open(QIODevice::WriteOnly));
    piece.write("<CsoundSynthesizer>\n<CsOptions>\n-W -o tiny.wav\n</CsOptions>\n<CsInstruments>\n"
                "sr = 44100\nksmps = 32\nnchnls = 1\n0dbfs = 1\ninstr 1\na1 oscili 0.2, 440\n"
                "out a1\nendin\n</CsInstruments>\n<CsScore>\ni 1 0 0.1\ne\n</CsScore>\n"
                "</CsoundSynthesizer>\n");
    piece.close();
    console.click("Command2");
    QVERIFY(console.text().startsWith(bannerText(0) + logHeading()));
    QVERIFY2(console.text().contains(QLatin1String("0 errors in performance")),
             qPrintable(console.text()));
    QVERIFY(!console.text().contains(u'\x1b'));
    const QFileInfo wave(console.folder.filePath(QStringLiteral("tiny.wav")));
    QVERIFY(wave.size() > 44);
}

QTEST_MAIN(tst_FormCSoundCSD)
#include "tst_FormCSoundCSD.moc"
