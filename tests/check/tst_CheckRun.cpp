#include "check/CheckedText.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>

using namespace ardiphon;

/// A check by compilers of every kind: one that hangs, prints without end, crashes or starts
/// others.
class tst_CheckRun : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void badCompiler_endsOnce_data();
    void badCompiler_endsOnce();
    void destroyed_leavesNoProcess();
    void folder_isGoneAfterwards();
    void folderThatCannotBeWritten_isSaid();
    void oddNames_areNoMatter_data();
    void oddNames_areNoMatter();
    void includeCircle_isSaid();
    void writesNothingOutsideItsFolder();
    void input_leavesOutWhatWritesOrOpens();
    void input_ofALongScore_isForTheModel();
    void options_thatChangeTheMeaningAreKept_data();
    void options_thatChangeTheMeaningAreKept();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    /// An executable script of that name.
    QString script(const QString &name, const QByteArray &commands) const;
    CheckResult resultOf(const QString &compiler, const CheckInput &input) const;
    static CheckInput inputOf(const QByteArray &text);
    /// How many processes have that text in their command.
    static int processesOf(const QString &text);

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

const QByteArray SmallPiece = "<CsoundSynthesizer>\n<CsOptions>\n-odac -W -d\n</CsOptions>\n"
                              "<CsInstruments>\ninstr 1\n a1 oscili .1, 440\n out a1\nendin\n"
                              "</CsInstruments>\n<CsScore>\ni1 0 1\n</CsScore>\n"
                              "<CsFileB filename=\"made.wav\">\nAAAA\n</CsFileB>\n"
                              "</CsoundSynthesizer>\n";

} // namespace

void tst_CheckRun::init() { m_folder = std::make_unique<QTemporaryDir>(); }

QString tst_CheckRun::script(const QString &name, const QByteArray &commands) const
{
    QFile file(path(name));
    require(file.open(QIODevice::WriteOnly), "the script is not written");
    file.write("#!/bin/sh\n" + commands + "\n");
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return file.fileName();
}

CheckInput tst_CheckRun::inputOf(const QByteArray &text)
{
    const PieceOfLines of(text);
    return checkInputOf(of.piece);
}

CheckResult tst_CheckRun::resultOf(const QString &compiler, const CheckInput &input) const
{
    CheckRun run;
    CheckResult result;
    QSignalSpy finished(&run, &CheckRun::finished);
    connect(&run, &CheckRun::finished, [&](const CheckResult &found) { result = found; });
    run.start(compiler, input, m_folder->path() + u'/', m_folder->path());
    require(finished.count() == 1 || finished.wait(20000), "the check does not end");
    QCoreApplication::processEvents();
    require(finished.count() == 1, "the check ends twice");
    return result;
}

int tst_CheckRun::processesOf(const QString &text)
{
    QProcess list;
    list.start(QStringLiteral("pgrep"), {QStringLiteral("-f"), text});
    list.waitForFinished();
    return int(list.readAll().count('\n'));
}

void tst_CheckRun::badCompiler_endsOnce_data()
{
    QTest::addColumn<QByteArray>("commands");
    QTest::addColumn<int>("outcome");

    QTest::newRow("hangs") << QByteArray("exec sleep 4711") << int(CheckOutcome::GaveUp);
    QTest::newRow("floods") << QByteArray("exec yes 4711") << int(CheckOutcome::GaveUp);
    QTest::newRow("crashes") << QByteArray("ulimit -c 0; kill -SEGV $$")
                             << int(CheckOutcome::Refused);
    QTest::newRow("starts others")
        << QByteArray("sleep 4711 & setsid sleep 4711 & sleep 4711") << int(CheckOutcome::GaveUp);
    QTest::newRow("ignores signals")
        << QByteArray("trap '' TERM INT HUP; sleep 4711; sleep 4711") << int(CheckOutcome::GaveUp);
    QTest::newRow("says nothing") << QByteArray("exit 0") << int(CheckOutcome::Refused);
    QTest::newRow("accepts") << QByteArray("echo 'Syntax check completed.'")
                             << int(CheckOutcome::Accepted);
}

void tst_CheckRun::badCompiler_endsOnce()
{
    QFETCH(QByteArray, commands);
    const QString compiler = script(QStringLiteral("compiler"), commands);
    QTEST(int(resultOf(compiler, inputOf(SmallPiece)).outcome), "outcome");
    QTRY_COMPARE(processesOf(QStringLiteral("sleep 4711|yes 4711")), 0);
}

/// As when the window closes or the text has changed.
void tst_CheckRun::destroyed_leavesNoProcess()
{
    const QString compiler = script(QStringLiteral("compiler"), "sleep 4712 & sleep 4712");
    auto run = std::make_unique<CheckRun>();
    run->start(compiler, inputOf(SmallPiece), m_folder->path() + u'/', m_folder->path());
    QTRY_VERIFY(processesOf(QStringLiteral("sleep 4712")) > 0);
    run.reset();
    QTRY_COMPARE(processesOf(QStringLiteral("sleep 4712")), 0);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList("compiler"));
}

void tst_CheckRun::folder_isGoneAfterwards()
{
    QVERIFY(resultOf(QStringLiteral("csound"), inputOf(SmallPiece)).outcome ==
            CheckOutcome::Accepted);
    QVERIFY(QDir(m_folder->path()).isEmpty());
}

void tst_CheckRun::folderThatCannotBeWritten_isSaid()
{
    CheckRun run;
    QSignalSpy finished(&run, &CheckRun::finished);
    run.start(QStringLiteral("csound"), inputOf(SmallPiece), QStringLiteral("/proc/nothing/"),
              QStringLiteral("/"));
    QCOMPARE(finished.count(), 1);
    QVERIFY(finished[0][0].value<CheckResult>().outcome == CheckOutcome::NotWritten);
}

void tst_CheckRun::oddNames_areNoMatter_data()
{
    QTest::addColumn<QString>("name");

    for (const char *name : {"with blank", "with\"quote", "with'quote", "with\nnewline", "-begins",
                             "$HOME", "$(touch made)", "a;b"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

/// The document's folder and the compiler's own have such names.
void tst_CheckRun::oddNames_areNoMatter()
{
    QFETCH(QString, name);
    QVERIFY(QDir(m_folder->path()).mkdir(name));
    QFile include(path(name + QStringLiteral("/tools.inc")));
    QVERIFY(include.open(QIODevice::WriteOnly));
    include.write("instr 7\nendin\n");
    include.close();
    const QString compiler = path(name + QStringLiteral("/compiler"));
    QVERIFY(QFile::link(QStandardPaths::findExecutable(QStringLiteral("csound")), compiler));
    QByteArray piece = SmallPiece;
    piece.replace("instr 1\n", "#include \"tools.inc\"\ninstr 1\n");
    CheckRun run;
    QSignalSpy finished(&run, &CheckRun::finished);
    run.start(compiler, inputOf(piece), m_folder->path() + u'/', path(name));
    QVERIFY(finished.count() == 1 || finished.wait(10000));
    QVERIFY(finished[0][0].value<CheckResult>().outcome == CheckOutcome::Accepted);
}

void tst_CheckRun::includeCircle_isSaid()
{
    QFile include(path(QStringLiteral("circle.inc")));
    QVERIFY(include.open(QIODevice::WriteOnly));
    include.write("#include \"circle.inc\"\n");
    include.close();
    QByteArray piece = SmallPiece;
    piece.replace("instr 1\n", "#include \"circle.inc\"\ninstr 1\n");
    const CheckResult result = resultOf(QStringLiteral("csound"), inputOf(piece));
    QVERIFY(result.outcome == CheckOutcome::Refused || result.outcome == CheckOutcome::GaveUp);
}

void tst_CheckRun::writesNothingOutsideItsFolder()
{
    const QString trace = path(QStringLiteral("trace"));
    const QString compiler =
        script(QStringLiteral("compiler"),
               "exec strace -f -qq -o '" + trace.toUtf8() +
                   "' -e trace=open,openat,creat,mkdir,mkdirat,unlink,unlinkat,rename,renameat,"
                   "renameat2,link,symlink,truncate,connect csound \"$@\"");
    if (QProcess::execute(
            QStringLiteral("strace"),
            {QStringLiteral("-o"), QStringLiteral("/dev/null"), QStringLiteral("true")}) != 0)
        QSKIP("no program may be traced here");
    const CheckResult result = resultOf(compiler, inputOf(SmallPiece));
    QVERIFY(result.outcome == CheckOutcome::Accepted || result.outcome == CheckOutcome::GaveUp);
    QFile calls(trace);
    QVERIFY(calls.open(QIODevice::ReadOnly));
    int seen = 0;
    for (const QByteArray &call : calls.readAll().split('\n')) {
        ++seen;
        const bool writes = call.contains("O_WRONLY") || call.contains("O_RDWR") ||
                            call.contains("O_CREAT") ||
                            (!call.contains("open") && call.contains("\"/"));
        const bool isOurs = call.contains(m_folder->path().toUtf8() + "/check-") ||
                            call.contains("\"/dev/") || call.contains("= -1 ");
        QVERIFY2(!writes || isOurs, call.constData());
    }
    QVERIFY(seen > 20);
}

void tst_CheckRun::input_leavesOutWhatWritesOrOpens()
{
    const CheckInput input = inputOf(SmallPiece);
    QCOMPARE(input.orchestraText, "instr 1\n a1 oscili .1, 440\n out a1\nendin\n");
    QCOMPARE(input.scoreText, "i1 0 1\n\ne\n");
    QVERIFY(input.options.isEmpty());
    QVERIFY((input.orchestra.lines == LineRun{6, 9}));
    QVERIFY((input.score.lines == LineRun{12, 12}));
    QByteArray made = SmallPiece;
    made.replace("<CsScore>", "<CsScore bin=\"touch made\">");
    QCOMPARE(inputOf(made).scoreText, "\ne\n");
    const ProgramCommand command =
        checkCommand(QStringLiteral("/usr/bin/csound"), input, QStringLiteral("/tmp/x/"), "/home");
    QCOMPARE(command.arguments,
             QStringList({"--syntax-check-only", "-d", "/tmp/x/piece.orc", "/tmp/x/piece.sco"}));
}

void tst_CheckRun::input_ofALongScore_isForTheModel()
{
    QByteArray piece = SmallPiece;
    piece.replace("i1 0 1\n", QByteArray("i1 0 1\n").repeated(LongestCheckedScore));
    QVERIFY(inputOf(piece).scoreText.size() > 30000);
    piece.replace("<CsScore>\n", "<CsScore>\ni1 0 1\n");
    QCOMPARE(inputOf(piece).scoreText, "\ne\n");
}

void tst_CheckRun::options_thatChangeTheMeaningAreKept_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("kept");

    QTest::newRow("none") << "" << QStringList();
    QTest::newRow("output and devices")
        << "-odac -iadc -W -o a.wav -M0 -+rtaudio=alsa" << QStringList();
    QTest::newRow("macros") << "-n --omacro:A=1 --smacro:B=2\n"
                            << QStringList({"--omacro:A=1", "--smacro:B=2"});
    QTest::newRow("rates") << "-r44100 -k 4410 --ksmps=10"
                           << QStringList({"-r44100", "-k4410", "--ksmps=10"});
    QTest::newRow("no rate") << "-rx -k" << QStringList();
    QTest::newRow("a comment") << "-W ; --omacro:A=1\n--env:INCDIR=/tmp"
                               << QStringList("--env:INCDIR=/tmp");
}

void tst_CheckRun::options_thatChangeTheMeaningAreKept()
{
    QFETCH(QString, text);
    QTEST(checkedOptions(text), "kept");
}

ARDIPHON_TEST(tst_CheckRun, QCoreApplication)
#include "tst_CheckRun.moc"
