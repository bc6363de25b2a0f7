#include "platform/ChildProcess.h"
#include "support/FileBytes.h"
#include "support/Require.h"
#include "support/StandInCompiler.h"
#include "support/TestMain.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <csignal>
#include <memory>
#include <unistd.h>
#include <vector>

using namespace ardiphon;
using StandInCompiler::isAlive;

namespace {

/// What this process keeps in memory, in bytes.
qint64 memoryInUse()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * ::sysconf(_SC_PAGESIZE);
}

qsizetype openDescriptors()
{
    const QDir all(QStringLiteral("/proc/self/fd"));
    return all.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

} // namespace

/// What a child process prints and is given to read.
class tst_ProcessStreams : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void lines_ofAnyBytes_areReported_data();
    void lines_ofAnyBytes_areReported();
    void lines_inParts_waitForTheirEnd();
    void lines_ofBothChannels_areKeptApart();
    void lines_merged_keepTheirOrder();
    void lines_longerThanAsked_comeInPieces();
    void lines_whileASlotWaits_keepTheirOrder();
    void flood_memoryStaysSmall_data();
    void flood_memoryStaysSmall();
    void flood_stopped_endsAtOnce();
    void flood_ofADescendant_endsWithTheRun();
    void input_ofAnySize_reachesASlowReader_data();
    void input_ofAnySize_reachesASlowReader();
    void input_nobodyReads_isDropped_data();
    void input_nobodyReads_isDropped();
    void input_brokenPipe_leavesTheSignalAlone();
    void input_notAskedFor_isEmpty();
    void input_answers_areADialogue();
    void end_everyWay_comesOnce_data();
    void end_everyWay_comesOnce();
    void start_again_doesNothing();
    void several_atOnce_areApart();
    void destroyed_inAnySignal_isSilent_data();
    void destroyed_inAnySignal_isSilent();
    void descriptors_ofAllRuns_areClosed();

private:
    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }
    QByteArray read(const char *name) const;
    /// The process whose id is in that file; 0 when there is none yet.
    pid_t noted(const char *name) const;
    void touch(const char *name) const { writeBytes(path(name), {}); }
    /// A shell script that talks.
    ProcessStart script(const QByteArray &lines, OutputUse output = OutputUse::Lines);
    /// A whole run of another process, so that anything late of the one before comes meanwhile.
    void runAnother();
    /// Of a script: waits for touch(\a name).
    static QByteArray waitFor(const char *name)
    {
        return QByteArray("while [ ! -e ") + name + " ]; do sleep 0.01; done\n";
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    int m_scripts = 0;
};

namespace {

/// Keeps all that a process announces.
struct Listener : QObject
{
    explicit Listener(ChildProcess &process)
    {
        connect(&process, &ChildProcess::started, this, [this] { told.append("started"); });
        connect(&process, &ChildProcess::lineRead, this, [this](const OutputLine &line) {
            told.append((line.channel == OutputChannel::Errors ? "err " : "out ") + line.bytes +
                        (line.isComplete ? '|' : '+'));
        });
        connect(&process, &ChildProcess::ended, this, [this] { told.append("ended"); });
    }

    QByteArrayList of(const QByteArray &beginning) const
    {
        QByteArrayList some = told;
        some.removeIf([&](const QByteArray &one) { return !one.startsWith(beginning); });
        return some;
    }

    QByteArrayList told;
};

} // namespace

void tst_ProcessStreams::init() { m_folder = std::make_unique<QTemporaryDir>(); }

void tst_ProcessStreams::cleanup()
{
    QTRY_VERIFY(!isAlive(noted("leader")) && !isAlive(noted("fugitive")));
}

QByteArray tst_ProcessStreams::read(const char *name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

pid_t tst_ProcessStreams::noted(const char *name) const
{
    const QByteArray text = read(name);
    return text.endsWith('\n') ? text.trimmed().toInt() : 0;
}

ProcessStart tst_ProcessStreams::script(const QByteArray &lines, OutputUse output)
{
    QFile file(m_folder->filePath(QStringLiteral("script%1").arg(++m_scripts)));
    if (!file.open(QIODevice::WriteOnly) || file.write("#!/bin/sh\n" + lines) < 0)
        qFatal("cannot write the script");
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ProcessStart start;
    start.command.executable = file.fileName();
    start.command.directory = m_folder->path();
    start.output = output;
    return start;
}

void tst_ProcessStreams::runAnother()
{
    ChildProcess other;
    other.start(script("echo another\n"));
    require(QTest::qWaitFor([&] { return other.end().has_value(); }), "the other does not end");
}

void tst_ProcessStreams::lines_ofAnyBytes_areReported_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArrayList>("lines");
    QTest::newRow("nothing") << QByteArray() << QByteArrayList();
    QTest::newRow("a line") << QByteArray("a\n") << QByteArrayList{"out a|"};
    QTest::newRow("CR LF") << QByteArray("a\r\n\r\nb\r\n")
                           << QByteArrayList{"out a|", "out |", "out b|"};
    QTest::newRow("no last end") << QByteArray("a\nb") << QByteArrayList{"out a|", "out b+"};
    QTest::newRow("NUL") << QByteArray("a\0b\n\0\0", 6)
                         << QByteArrayList{QByteArray("out a\0b|", 8), QByteArray("out \0\0+", 7)};
    for (const int size : {4095, 4096, 4097, 65535, 65536, 65537}) {
        const QByteArray line(size, 'x');
        QTest::addRow("%d", size) << line + "\n" + line + "\r\nend"
                                  << QByteArrayList{"out " + line + '|', "out " + line + '|',
                                                    "out end+"};
    }
}

void tst_ProcessStreams::lines_ofAnyBytes_areReported()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArrayList, lines);
    QFile file(path("bytes"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    ChildProcess process;
    const Listener listener(process);
    process.start(script("exec cat bytes\n"));
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    lines.prepend("started");
    lines.append("ended");
    QCOMPARE(listener.told, lines);
}

void tst_ProcessStreams::lines_inParts_waitForTheirEnd()
{
    ChildProcess process;
    const Listener listener(process);
    process.start(script("printf 'first\\npar'\n" + waitFor("go") + "printf 'tial\\r'\n" +
                         waitFor("on") + "printf '\\nlast'\n"));
    QTRY_COMPARE(listener.told, QByteArrayList({"started", "out first|"}));
    touch("go");
    touch("on");
    QTRY_VERIFY(process.end());
    QCOMPARE(listener.told,
             QByteArrayList({"started", "out first|", "out partial|", "out last+", "ended"}));
}

void tst_ProcessStreams::lines_ofBothChannels_areKeptApart()
{
    ChildProcess process;
    Listener listener(process);
    process.start(script("echo one\necho two >&2\necho three\nprintf four >&2\n"));
    QTRY_VERIFY(process.end());
    QCOMPARE(listener.of("out "), QByteArrayList({"out one|", "out three|"}));
    QCOMPARE(listener.of("err "), QByteArrayList({"err two|", "err four+"}));
    QCOMPARE(listener.told.size(), 6);
}

void tst_ProcessStreams::lines_merged_keepTheirOrder()
{
    ChildProcess process;
    const Listener listener(process);
    process.start(
        script("echo one\necho two >&2\necho three\nprintf four >&2\n", OutputUse::MergedLines));
    QTRY_VERIFY(process.end());
    QCOMPARE(listener.told, QByteArrayList({"started", "out one|", "out two|", "out three|",
                                            "out four+", "ended"}));
}

void tst_ProcessStreams::lines_longerThanAsked_comeInPieces()
{
    ChildProcess process;
    const Listener listener(process);
    ProcessStart start = script("echo 1234567\necho 1234\n");
    start.longestLine = 4;
    process.start(start);
    QTRY_VERIFY(process.end());
    QCOMPARE(listener.told,
             QByteArrayList({"started", "out 1234+", "out 567|", "out 1234|", "ended"}));
}

void tst_ProcessStreams::lines_whileASlotWaits_keepTheirOrder()
{
    ChildProcess process;
    const Listener listener(process);
    bool waits = true;
    bool endedWithin = false;
    connect(&process, &ChildProcess::lineRead, this, [&] {
        if (!std::exchange(waits, false))
            return;
        touch("go");
        endedWithin = QTest::qWaitFor([&] { return process.end().has_value(); });
    });
    process.start(script("printf '1\\n2\\n'\n" + waitFor("go") + "printf '3\\n4'\n"));
    QTRY_VERIFY(process.end());
    QTRY_VERIFY(endedWithin); // in the event loop of the slot
    QCOMPARE(listener.told,
             QByteArrayList({"started", "out 1|", "out 2|", "out 3|", "out 4+", "ended"}));
}

void tst_ProcessStreams::flood_memoryStaysSmall_data()
{
    QTest::addColumn<QByteArray>("program");
    QTest::addColumn<qint64>("bytes");
    QTest::newRow("lines") << QByteArray("yes 'a line of no great length that is told many times' |"
                                         " head -n 400000\n")
                           << qint64(400'000) * 50;
    QTest::newRow("one line") << QByteArray("head -c 50000000 /dev/zero\n") << qint64(50'000'000);
}

void tst_ProcessStreams::flood_memoryStaysSmall()
{
    QFETCH(QByteArray, program);
    QFETCH(qint64, bytes);
    ChildProcess process;
    qint64 told = 0;
    qint64 blocks = 0;
    qint64 most = 0;
    connect(&process, &ChildProcess::lineRead, this, [&](const OutputLine &line) {
        told += line.bytes.size() + (line.isComplete ? 1 : 0);
        if (told / 1'000'000 > blocks) {
            blocks = told / 1'000'000;
            most = std::max(most, memoryInUse());
        }
    });
    const qint64 before = memoryInUse();
    process.start(script(program));
    QTRY_VERIFY_WITH_TIMEOUT(process.end(), 60'000);
    QCOMPARE(told, bytes);
    QVERIFY2(most - before < 8'000'000, qPrintable(QString::number(most - before)));
}

void tst_ProcessStreams::flood_stopped_endsAtOnce()
{
    ChildProcess process;
    int lines = 0;
    int linesAtTheStop = 0;
    connect(&process, &ChildProcess::lineRead, this, [&] {
        if (++lines == 100) {
            linesAtTheStop = lines;
            process.stop();
        }
    });
    process.start(script("echo $$ >leader\nexec yes\n"));
    QTRY_COMPARE(process.end(), ProcessEnd::Stopped);
    QVERIFY(!isAlive(noted("leader")));
    QCOMPARE(linesAtTheStop, 100);
    QCOMPARE(lines, 100);
}

/// It holds the pipe, and is of another session.
void tst_ProcessStreams::flood_ofADescendant_endsWithTheRun()
{
    for (const bool stops : {false, true}) {
        ChildProcess process;
        process.start(script("setsid sh -c 'echo $$ >fugitive; exec yes' &\n" +
                             waitFor("fugitive") + (stops ? "sleep 300\n" : "")));
        QTRY_VERIFY(noted("fugitive"));
        if (stops)
            process.stop();
        QTRY_COMPARE(process.end(), stops ? ProcessEnd::Stopped : ProcessEnd::Ended);
        QVERIFY(!isAlive(noted("fugitive")));
        QVERIFY(QFile::remove(path("fugitive")));
    }
}

void tst_ProcessStreams::input_ofAnySize_reachesASlowReader_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 4096, 65536, 65537, 5'000'000})
        QTest::addRow("%d", size) << size;
}

void tst_ProcessStreams::input_ofAnySize_reachesASlowReader()
{
    QFETCH(int, size);
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i)
        bytes[i] = char(i * 7 + i / 251);
    ChildProcess process;
    QSignalSpy taken(&process, &ChildProcess::inputWritten);
    ProcessStart start = script(waitFor("go") + "cat >got~\nmv got~ got\n");
    start.input = true;
    process.start(start);
    QVERIFY(process.write(bytes.left(size / 2)));
    QVERIFY(process.write(bytes.mid(size / 2)));
    process.closeInput();
    QVERIFY(!process.write("too late"));
    QCOMPARE(process.unwritten(), size);
    QTRY_VERIFY(process.isStarted());
    constexpr int pipe = 65536;
    if (size > pipe) { // the rest has no room yet
        QTRY_COMPARE(process.unwritten(), size - pipe);
        QCOMPARE(taken.size(), 0);
    }
    touch("go");
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    QVERIFY(QFile::exists(path("got")));
    QVERIFY(read("got") == bytes);
    QCOMPARE(process.unwritten(), 0);
    QCOMPARE(taken.size(), size > 0 ? 1 : 0);
}

void tst_ProcessStreams::input_nobodyReads_isDropped_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QByteArray>("program");
    for (const int size : {0, 1, 65537, 5'000'000}) {
        QTest::addRow("%d, ends", size) << size << QByteArray("exit 0\n");
        QTest::addRow("%d, closes it", size) << size << "exec <&-\necho closed\n" + waitFor("go");
        QTest::addRow("%d, reads a part and ends", size) << size << QByteArray("head -c 10\n");
    }
}

void tst_ProcessStreams::input_nobodyReads_isDropped()
{
    QFETCH(int, size);
    QFETCH(QByteArray, program);
    const auto before = std::signal(SIGPIPE, SIG_DFL); // as a program without any library has it
    ChildProcess process;
    QSignalSpy ended(&process, &ChildProcess::ended);
    QSignalSpy lines(&process, &ChildProcess::lineRead);
    ProcessStart start = script(program);
    start.input = true;
    process.start(start);
    if (program.startsWith("exec")) {
        QTRY_COMPARE(lines.size(), 1);
        QVERIFY(process.write(QByteArray(size, 'x')));
        QTRY_COMPARE(process.unwritten(), 0);
        // It is found out by trying, once the program was the last to have the pipe.
        QTRY_COMPARE(process.write("more"), size == 0);
        QCOMPARE(process.end(), std::nullopt);
        touch("go");
    } else {
        QVERIFY(process.write(QByteArray(size, 'x')));
        process.closeInput();
    }
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    QVERIFY(!process.write("more"));
    QCOMPARE(process.unwritten(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(ended.size(), 1);
    std::signal(SIGPIPE, before);
}

/// One that is meant for others still comes, and none is left over.
void tst_ProcessStreams::input_brokenPipe_leavesTheSignalAlone()
{
    static int caught;
    caught = 0;
    const auto before = std::signal(SIGPIPE, [](int) { ++caught; });
    ChildProcess process;
    ProcessStart start = script("exec <&-\necho closed\nsleep 300\n");
    start.input = true;
    QSignalSpy lines(&process, &ChildProcess::lineRead);
    process.start(start);
    QTRY_COMPARE(lines.size(), 1);
    QVERIFY(process.write("x"));
    QTRY_VERIFY(!process.write("x"));
    sigset_t blocked;
    sigset_t pending;
    ::sigpending(&pending);
    ::pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
    QCOMPARE(caught, 0);
    QVERIFY(!::sigismember(&blocked, SIGPIPE) && !::sigismember(&pending, SIGPIPE));
    ::raise(SIGPIPE);
    QCOMPARE(caught, 1);
    std::signal(SIGPIPE, before);
}

void tst_ProcessStreams::input_notAskedFor_isEmpty()
{
    ChildProcess process;
    const Listener listener(process);
    QVERIFY(!process.write("before the start"));
    process.start(script("cat\necho done\n"));
    QVERIFY(!process.write("not asked for"));
    process.closeInput();
    QTRY_VERIFY(process.end());
    QCOMPARE(listener.told, QByteArrayList({"started", "out done|", "ended"}));
}

void tst_ProcessStreams::input_answers_areADialogue()
{
    ChildProcess process;
    ProcessStart start = script("while read -r line; do echo \"heard $line\"; done\n");
    start.input = true;
    QByteArrayList heard;
    QList<bool> writes;
    connect(&process, &ChildProcess::lineRead, this, [&](const OutputLine &line) {
        heard.append(line.bytes);
        if (heard.size() < 5)
            writes.append(process.write(QByteArray::number(heard.size()) + '\n'));
        else
            process.closeInput();
    });
    process.start(start);
    QVERIFY(process.write("0\n"));
    QTRY_COMPARE(process.end(), ProcessEnd::Ended);
    QCOMPARE(heard, QByteArrayList({"heard 0", "heard 1", "heard 2", "heard 3", "heard 4"}));
    QCOMPARE(writes, QList<bool>(4, true));
}

void tst_ProcessStreams::end_everyWay_comesOnce_data()
{
    QTest::addColumn<QByteArray>("program");
    QTest::addColumn<QString>("way");
    QTest::addColumn<ProcessEnd>("end");
    const QByteArray endless = "echo $$ >leader\necho here\nsleep 300\n";
    QTest::newRow("no such file") << QByteArray() << "gone" << ProcessEnd::NotFound;
    QTest::newRow("no program") << QByteArray() << "garbage" << ProcessEnd::StartFailed;
    QTest::newRow("no such folder") << QByteArray() << "folder" << ProcessEnd::StartFailed;
    QTest::newRow("ends") << QByteArray("echo here\n") << "" << ProcessEnd::Ended;
    QTest::newRow("fails") << QByteArray("echo here\nexit 3\n") << "" << ProcessEnd::Ended;
    QTest::newRow("prints nothing") << QByteArray("exit\n") << "" << ProcessEnd::Ended;
    QTest::newRow("kills itself") << QByteArray("echo here\nkill -9 $$\n") << ""
                                  << ProcessEnd::Ended;
    QTest::newRow("closes its streams first")
        << QByteArray("echo here\nexec >&- 2>&- <&-\nsleep 0.1\n") << "" << ProcessEnd::Ended;
    QTest::newRow("killed") << endless << "killed" << ProcessEnd::Ended;
    for (const char *when : {"at once", "in started", "in a line", "twice"})
        QTest::addRow("stopped %s", when) << endless << when << ProcessEnd::Stopped;
}

void tst_ProcessStreams::end_everyWay_comesOnce()
{
    QFETCH(QByteArray, program);
    QFETCH(QString, way);
    ProcessStart start = script(program);
    start.input = true;
    if (way == QLatin1String("gone"))
        start.command.executable += QLatin1String(".gone");
    else if (way == QLatin1String("folder"))
        start.command.directory += QLatin1String("/gone");
    else if (way == QLatin1String("garbage")) {
        QFile file(start.command.executable);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write("\x7f"
                                                                                    "ELF"));
    }
    ChildProcess process;
    Listener listener(process);
    connect(&process, &ChildProcess::started, this, [&] {
        if (way == QLatin1String("in started"))
            process.stop();
    });
    connect(&process, &ChildProcess::lineRead, this, [&] {
        if (way == QLatin1String("in a line") || way == QLatin1String("twice"))
            process.stop();
        if (way == QLatin1String("twice"))
            process.stop();
        if (way == QLatin1String("killed"))
            require(::kill(noted("leader"), SIGKILL) == 0, "the process cannot be killed");
    });
    process.start(start);
    if (way == QLatin1String("at once"))
        process.stop();
    QTRY_VERIFY(process.end());
    QTEST(*process.end(), "end");
    process.stop();
    runAnother();
    QCOMPARE(listener.told.count("ended"), 1);
    QCOMPARE(listener.told.last(), "ended");
    const bool startFails =
        process.end() == ProcessEnd::NotFound || process.end() == ProcessEnd::StartFailed;
    QVERIFY(listener.told.count("started") <= 1);
    if (startFails)
        QCOMPARE(listener.told, QByteArrayList{"ended"});
    QTEST(*process.end(), "end");
}

void tst_ProcessStreams::start_again_doesNothing()
{
    ChildProcess process;
    const Listener listener(process);
    process.start(script(waitFor("go") + "echo one\n"));
    process.start(script("echo two\n"));
    touch("go");
    QTRY_VERIFY(process.end());
    process.start(script("echo three\n"));
    runAnother();
    QCOMPARE(listener.told, QByteArrayList({"started", "out one|", "ended"}));
}

void tst_ProcessStreams::several_atOnce_areApart()
{
    constexpr int count = 20;
    std::vector<std::unique_ptr<ChildProcess>> processes;
    std::vector<std::unique_ptr<Listener>> listeners;
    ProcessStart start =
        script("read -r number\n"
               "for i in 1 2 3; do echo \"$number $i\"; echo \"$number\" >&2; done\n" +
               waitFor("go") + "echo last\n");
    start.input = true;
    for (int i = 0; i < count; ++i) {
        processes.push_back(std::make_unique<ChildProcess>());
        listeners.push_back(std::make_unique<Listener>(*processes.back()));
        processes.back()->start(start);
    }
    for (int i = 0; i < count; ++i)
        QVERIFY(processes[i]->write(QByteArray::number(i) + '\n'));
    for (int i = 0; i < count; ++i)
        QTRY_COMPARE(listeners[i]->told.size(), 7);
    processes[3]->stop();
    processes[4].reset();
    QTRY_COMPARE(processes[3]->end(), ProcessEnd::Stopped);
    touch("go");
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        QByteArrayList lines{"out " + number + " 1|", "out " + number + " 2|",
                             "out " + number + " 3|"};
        if (i != 3 && i != 4) {
            QTRY_COMPARE(processes[i]->end(), ProcessEnd::Ended);
            lines.append("out last|");
        }
        QCOMPARE(listeners[i]->of("out "), lines);
        QCOMPARE(listeners[i]->of("err "), QByteArrayList(3, "err " + number + '|'));
        QCOMPARE(listeners[i]->told.count("ended"), i == 4 ? 0 : 1);
    }
}

void tst_ProcessStreams::destroyed_inAnySignal_isSilent_data()
{
    QTest::addColumn<QString>("when");
    for (const char *when : {"started", "line", "rest", "taken", "ended", "running"})
        QTest::newRow(when) << when;
}

void tst_ProcessStreams::destroyed_inAnySignal_isSilent()
{
    QFETCH(QString, when);
    auto process = std::make_unique<ChildProcess>();
    const Listener listener(*process);
    ProcessStart start = script("echo $$ >leader\nread -r line\necho one\necho two\nprintf three\n"
                                "if [ \"$line\" = more ]; then sleep 300; fi\n");
    start.input = true;
    const auto destroy = [&process] { process.reset(); };
    if (when == QLatin1String("started"))
        connect(process.get(), &ChildProcess::started, this, destroy);
    else if (when == QLatin1String("taken"))
        connect(process.get(), &ChildProcess::inputWritten, this, destroy);
    else if (when == QLatin1String("ended"))
        connect(process.get(), &ChildProcess::ended, this, destroy);
    else if (when != QLatin1String("running"))
        connect(process.get(), &ChildProcess::lineRead, this, [&](const OutputLine &line) {
            if (when == QLatin1String("line") || !line.isComplete)
                destroy();
        });
    const bool ends = when == QLatin1String("rest") || when == QLatin1String("ended");
    process->start(start);
    QVERIFY(process->write(ends ? "end\n" : "more\n"));
    if (when == QLatin1String("running")) {
        QTRY_COMPARE(listener.told.size(), 3);
        QVERIFY(process->write(QByteArray(1'000'000, 'x')));
        destroy();
    }
    QTRY_VERIFY(!process);
    const QByteArrayList told = listener.told;
    QTRY_VERIFY(!isAlive(noted("leader")));
    runAnother();
    QCOMPARE(listener.told, told);
    QCOMPARE(told.count("ended"), when == QLatin1String("ended") ? 1 : 0);
}

void tst_ProcessStreams::descriptors_ofAllRuns_areClosed()
{
    const auto runAll = [this] {
        for (const QByteArray program : {"exit\n", "echo a; echo b >&2\n", "sleep 300\n"}) {
            for (const OutputUse use : {OutputUse::Lines, OutputUse::MergedLines}) {
                ChildProcess process;
                ProcessStart start = script(program, use);
                start.input = true;
                process.start(start);
                QVERIFY(process.write("x"));
                QTRY_VERIFY(process.isStarted());
                if (program.startsWith("sleep"))
                    process.stop();
                QTRY_VERIFY(process.end());
            }
        }
    };
    CHECKED(runAll()); // what stays open from the first start on is none of each
    const auto before = openDescriptors();
    CHECKED(runAll());
    QCOMPARE(openDescriptors(), before);
}

ARDIPHON_TEST(tst_ProcessStreams, QCoreApplication)
#include "tst_ProcessStreams.moc"
