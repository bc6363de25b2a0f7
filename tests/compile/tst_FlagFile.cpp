#include "compile/FlagFile.h"
#include "platform/FileFailure.h"
#include "support/Fifo.h"
#include "support/FileBytes.h"
#include "support/TestMain.h"
#include "support/TimeLimit.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace ardiphon;

namespace {

QByteArray padded(const QByteArray &text) { return text.leftJustified(50, ' '); }

/// A record of the other layout, with \a rest behind the text.
QByteArray tagged(const QByteArray &text, char type = 8, char rest = '\0')
{
    QByteArray bytes;
    bytes.append(type).append('\0').append(char(text.size())).append('\0').append(text);
    return bytes.leftJustified(50, rest);
}

/// The flags that a reader finds there, who takes a file that cannot be read as one without any.
QStringList flagsIn(const QString &path, FlagLayout layout)
{
    return readFlagFile(path, layout).value_or({});
}

} // namespace

class tst_FlagFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void write_flags_exactBytes();
    void write_none_removesTheFile();
    void write_tooLong_leavesTaggedRecordEmpty();
    void write_tooLong_cutsPaddedRecord();
    void write_shorterList_leavesNoOldRecords();
    void write_cannotDelete_writesOver();
    void write_failing_keepsTheOldFlagsAndSaysWhy();
    void write_noRegularFile_isRefused();
    void read_fifo_isNotWaitedFor();
    void write_sameFlags_leavesTheBytesAlone();
    void read_written_comesBack_data();
    void read_written_comesBack();
    void read_blanks_areCut();
    void read_emptyRecords_areFlagsOnlyWhenPadded();
    void read_tornRecord_isLeftOut();
    void read_nonsense_isLeftOut_data();
    void read_nonsense_isLeftOut();
    void read_noFile_nothing();
    void read_endless_isBounded();

private:
    QByteArray bytes() const
    {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    void setBytes(const QByteArray &bytes) const { writeBytes(m_path, bytes); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

void tst_FlagFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(QStringLiteral("CSFlags.dat"));
}

void tst_FlagFile::write_flags_exactBytes()
{
    const QStringList flags{QStringLiteral("-W  "), QStringLiteral(" -w -è")};
    QVERIFY(writeFlagFile(m_path, FlagLayout::Tagged, flags));
    QCOMPARE(bytes(), QByteArray("\x08\x00\x02\x00-W", 6) + QByteArray(44, '\0') +
                          QByteArray("\x08\x00\x06\x00 -w -\xe8", 10) + QByteArray(40, '\0'));
    QVERIFY(writeFlagFile(m_path, FlagLayout::Padded, flags));
    QCOMPARE(bytes(), "-W" + QByteArray(48, ' ') + " -w -\xe8" + QByteArray(44, ' '));
}

void tst_FlagFile::write_none_removesTheFile()
{
    QVERIFY(writeFlagFile(m_path, FlagLayout::Tagged, {QStringLiteral("-W")}));
    QVERIFY(QFile::exists(m_path));
    QVERIFY(writeFlagFile(m_path, FlagLayout::Tagged, {}));
    QVERIFY(!QFile::exists(m_path));
    QVERIFY(writeFlagFile(m_path, FlagLayout::Tagged, {}));
    QVERIFY(!QFile::exists(m_path));
}

void tst_FlagFile::write_tooLong_leavesTaggedRecordEmpty()
{
    const QString fits(46, u'a');
    const QString tooLong(47, u'b');
    QVERIFY(writeFlagFile(m_path, FlagLayout::Tagged, {fits, tooLong, QStringLiteral("-W")}));
    QCOMPARE(bytes(), tagged(QByteArray(46, 'a')) + QByteArray(50, '\0') + tagged("-W"));
    QCOMPARE(flagsIn(m_path, FlagLayout::Tagged), QStringList({fits, "-W"}));
}

void tst_FlagFile::write_tooLong_cutsPaddedRecord()
{
    QVERIFY(writeFlagFile(m_path, FlagLayout::Padded, {QString(60, u'a'), QStringLiteral("-W")}));
    QCOMPARE(bytes(), QByteArray(50, 'a') + padded("-W"));
    QCOMPARE(flagsIn(m_path, FlagLayout::Padded), QStringList({QString(50, u'a'), "-W"}));
    // No character is torn.
    const QString notes = QStringLiteral(u"\U0001F3B5").repeated(20);
    QVERIFY(writeFlagFile(m_path, FlagLayout::Padded, {notes}));
    QCOMPARE(flagsIn(m_path, FlagLayout::Padded), QStringList{notes.first(2 * 12)});
}

void tst_FlagFile::write_shorterList_leavesNoOldRecords()
{
    QVERIFY(writeFlagFile(m_path, FlagLayout::Padded, {QStringLiteral("a"), QStringLiteral("b")}));
    QVERIFY(writeFlagFile(m_path, FlagLayout::Padded, {QStringLiteral("c")}));
    QCOMPARE(bytes(), padded("c"));
}

void tst_FlagFile::write_cannotDelete_writesOver()
{
    QVERIFY(writeFlagFile(m_path, FlagLayout::Padded, {QStringLiteral("a"), QStringLiteral("b")}));
    const QByteArray folder = QFile::encodeName(m_folder->path());
    QVERIFY(::chmod(folder.constData(), 0555) == 0);
    QVERIFY(::chmod(QFile::encodeName(m_path).constData(), 0666) == 0);
    const pid_t child = ::fork();
    if (child == 0) {
        qputenv("TMPDIR", "/tmp");
        // The superuser deletes whatever he wants, and becomes somebody else.
        if (::geteuid() == 0 && ::setuid(12345) != 0)
            ::_exit(1);
        if (!writeFlagFile(m_path, FlagLayout::Padded, {QStringLiteral("c")}))
            ::_exit(2);
        const auto removed = writeFlagFile(m_path, FlagLayout::Padded, {});
        if (removed)
            ::_exit(3);
        ::_exit(removed.failure().kind == FileFailure::Kind::NoPermission ? 0 : 4);
    }
    int status = 0;
    QCOMPARE(::waitpid(child, &status, 0), child);
    QVERIFY(::chmod(folder.constData(), 0755) == 0);
    QCOMPARE(status, 0);
    QCOMPARE(bytes(), padded("c") + padded("b"));
}

void tst_FlagFile::write_failing_keepsTheOldFlagsAndSaysWhy()
{
    const QString gone = m_folder->filePath(QStringLiteral("gone/CSFlags.dat"));
    const auto nowhere = writeFlagFile(gone, FlagLayout::Tagged, {QStringLiteral("-W")});
    QVERIFY(!nowhere);
    QCOMPARE(nowhere.failure().kind, FileFailure::Kind::NotThere);
    QVERIFY(writeFlagFile(gone, FlagLayout::Tagged, {}));

    QVERIFY(writeFlagFile(m_path, FlagLayout::Tagged, {QStringLiteral("-W")}));
    const QByteArray before = bytes();
    const rlimit none{0, RLIM_INFINITY};
    rlimit usual{};
    ::getrlimit(RLIMIT_FSIZE, &usual);
    ::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &none);
    const auto written = writeFlagFile(m_path, FlagLayout::Tagged, {QStringLiteral("-A")});
    ::setrlimit(RLIMIT_FSIZE, &usual);
    QVERIFY(!written);
    QCOMPARE(written.failure().kind, FileFailure::Kind::SizeLimit);
    QCOMPARE(bytes(), before);
}

void tst_FlagFile::write_noRegularFile_isRefused()
{
    Fifo fifo(m_path);
    const auto written = writeFlagFile(m_path, FlagLayout::Tagged, {QStringLiteral("-W")});
    QVERIFY(!written);
    QCOMPARE(written.failure().kind, FileFailure::Kind::NoRegularFile);
    QVERIFY(!fifo.wasWaitedFor());
}

void tst_FlagFile::read_fifo_isNotWaitedFor()
{
    Fifo fifo(m_path);
    QCOMPARE(flagsIn(m_path, FlagLayout::Tagged), QStringList());
    QVERIFY(!fifo.wasWaitedFor());
}

/// What follows a text means nothing, but it is not ours to change.
void tst_FlagFile::write_sameFlags_leavesTheBytesAlone()
{
    const QByteArray foreign = tagged("-W", 8, 'x') + tagged("", 0, 'y') + tagged("-\xe8 ", 8, 'z');
    setBytes(foreign);
    QVERIFY(writeFlagFile(m_path, FlagLayout::Tagged, flagsIn(m_path, FlagLayout::Tagged)));
    QCOMPARE(bytes(), foreign);
}

void tst_FlagFile::read_written_comesBack_data()
{
    QTest::addColumn<QStringList>("flags");
    QTest::newRow("plain") << QStringList{"-W", "-w", "-d -m7"};
    QTest::newRow("twice") << QStringList{"-W", "-W"};
    QTest::newRow("Latin-1") << QStringList{"-o /è/ß"};
    QTest::newRow("like UTF-8") << QStringList{QStringLiteral(u"\u00c3\u00a9")};
    QTest::newRow("beyond") << QStringList{QStringLiteral(u"\u6f22 \U0001F3B5")};
}

void tst_FlagFile::read_written_comesBack()
{
    QFETCH(QStringList, flags);
    for (const FlagLayout layout : {FlagLayout::Tagged, FlagLayout::Padded}) {
        QVERIFY(writeFlagFile(m_path, layout, flags));
        QCOMPARE(flagsIn(m_path, layout), flags);
        const QByteArray written = bytes();
        QFile::remove(m_path);
        QVERIFY(writeFlagFile(m_path, layout, flags));
        QCOMPARE(bytes(), written);
    }
}

void tst_FlagFile::read_blanks_areCut()
{
    setBytes(tagged(" -W  "));
    QCOMPARE(flagsIn(m_path, FlagLayout::Tagged), QStringList{" -W"});
    setBytes(padded(" -W"));
    QCOMPARE(flagsIn(m_path, FlagLayout::Padded), QStringList{" -W"});
}

void tst_FlagFile::read_emptyRecords_areFlagsOnlyWhenPadded()
{
    setBytes(tagged("") + tagged("x", 0) + tagged("  ") + tagged("-W"));
    QCOMPARE(flagsIn(m_path, FlagLayout::Tagged), QStringList({"", "-W"})); // of the blanks
    setBytes(padded("") + padded("-W"));
    QCOMPARE(flagsIn(m_path, FlagLayout::Padded), QStringList({"", "-W"}));
}

void tst_FlagFile::read_tornRecord_isLeftOut()
{
    setBytes(padded("-W") + QByteArray(49, 'x'));
    QCOMPARE(flagsIn(m_path, FlagLayout::Padded), QStringList{"-W"});
    setBytes(tagged("-W") + tagged("-w").chopped(1));
    QCOMPARE(flagsIn(m_path, FlagLayout::Tagged), QStringList{"-W"});
}

void tst_FlagFile::read_nonsense_isLeftOut_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::newRow("other type") << tagged("12", 2);
    QTest::newRow("longer than a record")
        << QByteArray("\x08\x00\x2f\x00", 4) + QByteArray(46, 'x');
    QTest::newRow("endless") << QByteArray("\x08\x00\xff\xff", 4) + QByteArray(46, 'x');
    QTest::newRow("ones") << QByteArray(50, '\xff');
}

void tst_FlagFile::read_nonsense_isLeftOut()
{
    QFETCH(QByteArray, record);
    setBytes(record + tagged("-W"));
    QCOMPARE(flagsIn(m_path, FlagLayout::Tagged), QStringList{"-W"});
}

void tst_FlagFile::read_noFile_nothing()
{
    for (const FlagLayout layout : {FlagLayout::Tagged, FlagLayout::Padded}) {
        QCOMPARE(flagsIn(m_path, layout), QStringList());
        QCOMPARE(flagsIn(m_folder->path(), layout), QStringList());
    }
    QVERIFY(::mkfifo(QFile::encodeName(m_path).constData(), 0600) == 0);
    const TimeLimit limit; // nobody will ever write into it
    QCOMPARE(flagsIn(m_path, FlagLayout::Tagged), QStringList());
}

void tst_FlagFile::read_endless_isBounded()
{
    setBytes(padded("-W"));
    QVERIFY(QFile::resize(m_path, 10'000'000'000)); // takes no room on the disk
    const TimeLimit limit;
    QCOMPARE(flagsIn(m_path, FlagLayout::Padded).size(), 5000);
}

ARDIPHON_TEST(tst_FlagFile, QCoreApplication)
#include "tst_FlagFile.moc"
