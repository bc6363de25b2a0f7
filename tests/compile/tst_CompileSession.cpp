#include "compile/CompileRules.h"
#include "compile/CompileSession.h"
#include "platform/CommandText.h"
#include "support/Require.h"
#include "support/StandInCompiler.h"
#include "support/TestMain.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>
#include <vector>

using namespace ardiphon;
using namespace StandInCompiler;

class tst_CompileSession : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void run_logged_hasItsLog();
    void run_environmentAndFolders_reachTheCompiler();
    void run_oldLog_isRemovedFirst();
    void run_folderOfTheLog_isMadeAgain();
    void run_namesNoLog_touchesNone();
    void run_lines_areReportedAndKept();
    void run_flood_keepsBeginningAndEnd();
    void run_linesNotAskedFor_areNotReported();
    void end_everyWay_comesOnce_data();
    void end_everyWay_comesOnce();
    void start_again_doesNothing();
    void several_atOnce_areApart();
    void destroyed_whileRunning_killsAll();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    /// A compile of that piece; its log lies in a folder of the program's own.
    CompileRequest request(const QString &piece,
                           const QString &root = QStringLiteral("root/")) const;

    /// A whole run of another session, so that anything late of the one before comes meanwhile.
    void runAnother() const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

bool isGone(const Pids &run) { return !isAlive(run.leader) && !isAlive(run.child); }

} // namespace

void tst_CompileSession::init()
{
    // Without the usual dash, as options are searched for "-O".
    m_folder = std::make_unique<QTemporaryDir>(QDir::tempPath() + QStringLiteral("/test_XXXXXX"));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("root")));
}

CompileRequest tst_CompileSession::request(const QString &piece, const QString &root) const
{
    CompileRequest request{
        commandOf(StandInCompiler::path(),
                  csdParameters(path(piece + QStringLiteral(".csd")), path(root)),
                  m_folder->path()),
        m_folder->path()};
    request.logFile = CompileLogFile(path(root));
    return request;
}

void tst_CompileSession::runAnother() const
{
    QDir(m_folder->path()).mkdir(QStringLiteral("other"));
    CompileSession other;
    other.start(request(QStringLiteral("lists"), QStringLiteral("other/")));
    require(QTest::qWaitFor([&] { return other.end().has_value(); }), "the other does not end");
}

void tst_CompileSession::run_logged_hasItsLog()
{
    CompileSession session;
    QSignalSpy started(&session, &CompileSession::started);
    QSignalSpy ended(&session, &CompileSession::ended);
    QCOMPARE(session.readLog(), std::nullopt);
    session.start(request(QStringLiteral("logged")));
    QVERIFY(!session.end());
    QTRY_COMPARE(session.end(), ProcessEnd::Ended);
    QCOMPARE(started.size(), 1);
    QCOMPARE(ended.size(), 1);
    QCOMPARE(session.readLog(), QStringLiteral("this is the log\r\n"));
    QCOMPARE(session.printed(), QString());
}

void tst_CompileSession::run_environmentAndFolders_reachTheCompiler()
{
    qunsetenv("SFDIR");
    qunsetenv("LC_ALL");
    CompileRequest asked = request(QStringLiteral("lists"));
    asked.documentFolder = QStringLiteral("/the pieces");
    asked.command.environment = {{QStringLiteral("LANG"), QStringLiteral("it_IT.UTF-8")}};
    CompileSession session;
    session.start(asked);
    QTRY_COMPARE(session.end(), ProcessEnd::Ended);
    const QStringList lines = session.readLog().value_or(QString()).split(QStringLiteral("\r\n"));
    QVERIFY(lines.contains(QStringLiteral("SFDIR=/the pieces")));
    QVERIFY(lines.contains(QStringLiteral("LC_MESSAGES=C")));
    QVERIFY(lines.contains(QStringLiteral("LANG=it_IT.UTF-8")));
    QVERIFY(lines.contains(QStringLiteral("directory ") + m_folder->path()));
    QVERIFY(lines.contains(QStringLiteral("output /dev/null")));
}

void tst_CompileSession::run_oldLog_isRemovedFirst()
{
    QFile log(CompileLogFile(path(QStringLiteral("root/"))));
    QVERIFY(log.open(QIODevice::WriteOnly) && log.write("old") == 3);
    log.close();
    CompileSession session;
    session.start(request(QStringLiteral("quiet")));
    QTRY_COMPARE(session.end(), ProcessEnd::Ended);
    QVERIFY(!log.exists());
    QCOMPARE(session.readLog(), std::nullopt);
}

void tst_CompileSession::run_folderOfTheLog_isMadeAgain()
{
    QVERIFY(QDir(m_folder->path()).rmdir(QStringLiteral("root")));
    CompileSession session;
    session.start(request(QStringLiteral("logged")));
    QTRY_COMPARE(session.end(), ProcessEnd::Ended);
    QCOMPARE(session.readLog(), QStringLiteral("this is the log\r\n"));
}

void tst_CompileSession::run_namesNoLog_touchesNone()
{
    QFile log(CompileLogFile(path(QStringLiteral("root/"))));
    QVERIFY(log.open(QIODevice::WriteOnly) && log.write("other") == 5);
    log.close();
    CompileRequest asked = request(QStringLiteral("quiet"));
    asked.logFile.clear();
    CompileSession session;
    session.start(asked);
    QTRY_COMPARE(session.end(), ProcessEnd::Ended);
    QVERIFY(log.exists());
    QCOMPARE(session.readLog(), std::nullopt);
}

void tst_CompileSession::run_lines_areReportedAndKept()
{
    QFile script(path(QStringLiteral("compiler")));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\necho one\necho two >&2\nprintf three\n");
    script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    script.close();
    CompileRequest asked = request(QStringLiteral("any"));
    asked.command.executable = script.fileName();
    asked.output = OutputUse::MergedLines;
    CompileSession session;
    QStringList kept;
    connect(&session, &CompileSession::lineRead, this, [&] { kept.append(session.printed()); });
    session.start(asked);
    QTRY_COMPARE(session.end(), ProcessEnd::Ended);
    QCOMPARE(kept, QStringList({"one\r\n", "one\r\ntwo\r\n", "one\r\ntwo\r\nthree"}));
}

void tst_CompileSession::run_flood_keepsBeginningAndEnd()
{
    CompileRequest asked = request(QStringLiteral("flood"));
    asked.output = OutputUse::MergedLines;
    asked.kept = {100'000, 2};
    CompileSession session;
    int lines = 0;
    connect(&session, &CompileSession::lineRead, this, [&lines] { ++lines; });
    session.start(asked);
    QTRY_VERIFY_WITH_TIMEOUT(session.end(), 60'000);
    QCOMPARE(lines, 200'000);
    const QString rest = QStringLiteral(" of a compiler that has a great deal to say\r\n");
    const QString text = session.printed();
    QVERIFY(text.startsWith("line 1" + rest + "line 2" + rest + "\r\n[... "));
    QVERIFY(text.endsWith(" ...]\r\n\r\nline 199999" + rest + "line 200000" + rest));
}

void tst_CompileSession::run_linesNotAskedFor_areNotReported()
{
    CompileSession session;
    QSignalSpy lines(&session, &CompileSession::lineRead);
    session.start(request(QStringLiteral("flood")));
    QTRY_VERIFY_WITH_TIMEOUT(session.end(), 60'000);
    QCOMPARE(lines.size(), 0);
    QCOMPARE(session.printed(), QString());
}

void tst_CompileSession::end_everyWay_comesOnce_data()
{
    QTest::addColumn<QString>("piece");
    QTest::addColumn<QString>("compiler");
    QTest::addColumn<ProcessEnd>("end");
    const QString usual = StandInCompiler::path();
    QTest::newRow("ends") << "logged" << usual << ProcessEnd::Ended;
    QTest::newRow("fails") << "fails" << usual << ProcessEnd::Ended;
    QTest::newRow("crashes") << "crashes" << usual << ProcessEnd::Ended;
    QTest::newRow("leaves another") << "leaves" << usual << ProcessEnd::Ended;
    QTest::newRow("stopped") << "forks" << usual << ProcessEnd::Stopped;
    QTest::newRow("stopped, ignoring it") << "ignores" << usual << ProcessEnd::Stopped;
    QTest::newRow("gone") << "logged" << usual + ".gone" << ProcessEnd::NotFound;
    QTest::newRow("folder") << "logged" << QStringLiteral("/") << ProcessEnd::StartFailed;
}

void tst_CompileSession::end_everyWay_comesOnce()
{
    QFETCH(QString, piece);
    QFETCH(QString, compiler);
    QFETCH(ProcessEnd, end);
    CompileRequest asked = request(piece);
    asked.command.executable = compiler;
    CompileSession session;
    QSignalSpy started(&session, &CompileSession::started);
    QSignalSpy ended(&session, &CompileSession::ended);
    session.start(asked);
    const QString csd = path(piece + QStringLiteral(".csd"));
    if (end == ProcessEnd::Stopped) {
        QTRY_VERIFY(pids(csd).leader && session.isStarted());
        session.stop();
        session.stop();
    }
    QTRY_COMPARE(session.end(), end);
    session.stop();
    runAnother();
    QCOMPARE(ended.size(), 1);
    QCOMPARE(ended.first().first().value<ProcessEnd>(), end);
    const bool runs = end == ProcessEnd::Ended || end == ProcessEnd::Stopped;
    QCOMPARE(started.size(), runs ? 1 : 0);
    QVERIFY(isGone(pids(csd)));
    if (piece == QLatin1String("forks"))
        QVERIFY(pids(csd).child);
}

void tst_CompileSession::start_again_doesNothing()
{
    CompileSession session;
    QSignalSpy ended(&session, &CompileSession::ended);
    session.start(request(QStringLiteral("logged")));
    QTRY_VERIFY(session.end());
    session.start(request(QStringLiteral("quiet")));
    runAnother();
    QCOMPARE(ended.size(), 1);
    QCOMPARE(session.readLog(), QStringLiteral("this is the log\r\n"));
    QVERIFY(!pids(path(QStringLiteral("quiet.csd"))).leader);
}

void tst_CompileSession::several_atOnce_areApart()
{
    constexpr int count = 6;
    std::vector<std::unique_ptr<CompileSession>> sessions;
    for (int i = 0; i < count; ++i) {
        const QString root = QStringLiteral("root%1/").arg(i);
        QVERIFY(QDir(m_folder->path()).mkdir(root));
        sessions.push_back(std::make_unique<CompileSession>());
        CompileRequest asked =
            request(i % 2 ? QStringLiteral("forks") : QStringLiteral("lists"), root);
        asked.documentFolder = QStringLiteral("/pieces %1").arg(i);
        if (i % 2) { // a piece for each, as it leaves its ids beside it
            const QString folder = path(root);
            asked.command.arguments.replace(0, folder + QStringLiteral("forks.csd"));
        }
        sessions.back()->start(asked);
    }
    const auto forked = [this](int i) {
        return pids(path(QStringLiteral("root%1/forks.csd").arg(i)));
    };
    for (int i = 1; i < count; i += 2)
        QTRY_VERIFY(forked(i).child);
    sessions[1]->stop();
    QTRY_COMPARE(sessions[1]->end(), ProcessEnd::Stopped);
    QVERIFY(isGone(forked(1)));
    QVERIFY(isAlive(forked(3).leader) && isAlive(forked(3).child) && !sessions[3]->end());
    for (int i = 0; i < count; i += 2) {
        QTRY_COMPARE(sessions[i]->end(), ProcessEnd::Ended);
        QVERIFY(sessions[i]->readLog()->contains(QStringLiteral("SFDIR=/pieces %1\r\n").arg(i)));
    }
    sessions.clear();
    for (int i = 1; i < count; i += 2)
        QTRY_VERIFY(isGone(forked(i)));
}

void tst_CompileSession::destroyed_whileRunning_killsAll()
{
    auto session = std::make_unique<CompileSession>();
    QSignalSpy ended(session.get(), &CompileSession::ended);
    session->start(request(QStringLiteral("forks")));
    QTRY_VERIFY(pids(path(QStringLiteral("forks.csd"))).child);
    const Pids run = pids(path(QStringLiteral("forks.csd")));
    session.reset();
    QTRY_VERIFY(isGone(run));
    QCOMPARE(ended.size(), 0);
}

ARDIPHON_TEST(tst_CompileSession, QCoreApplication)
#include "tst_CompileSession.moc"
