// A save in which steps of the system fail, one after the other. The calls that write come through
// here, and fail where a test says so.

#include "platform/DocumentFile.h"
#include "platform/FileFailure.h"
#include "support/FileBytes.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <cstdio>
#include <functional>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

enum class Call { Write, Flush, Truncate, Rename };

// Gives the error number with which a call on that file is to fail, or 0. It is asked at every
// call while it is set.
std::function<int(Call call, const QByteArray &path)> fault;

QByteArray pathOf(int descriptor)
{
    char path[4096];
    const QByteArray link = "/proc/self/fd/" + QByteArray::number(descriptor);
    const ssize_t length = ::readlink(link.constData(), path, sizeof path);
    return length < 0 ? QByteArray() : QByteArray(path, length);
}

bool fails(Call call, const QByteArray &path)
{
    const int error = fault ? fault(call, path) : 0;
    if (error)
        errno = error;
    return error != 0;
}

} // namespace

// These replace the library's own for the whole program.
extern "C" {
ssize_t write(int descriptor, const void *bytes, size_t size)
{
    if (fault && fails(Call::Write, pathOf(descriptor)))
        return -1;
    return ::syscall(SYS_write, descriptor, bytes, size);
}

int fsync(int descriptor)
{
    if (fault && fails(Call::Flush, pathOf(descriptor)))
        return -1;
    return int(::syscall(SYS_fsync, descriptor));
}

int ftruncate(int descriptor, off_t size) noexcept
{
    if (fault && fails(Call::Truncate, pathOf(descriptor)))
        return -1;
    return int(::syscall(SYS_ftruncate, descriptor, size));
}

int rename(const char *from, const char *to) noexcept
{
    if (fault && fails(Call::Rename, to))
        return -1;
    return int(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
}

using namespace ardiphon;

namespace {

const QByteArray OldBytes = QByteArray("old text\n").repeated(2000);
const QByteArray NewBytes = QByteArray("the new one\r\n").repeated(900);

QByteArray get(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not there)");
}

} // namespace

class tst_FailingDisk : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void replace_flushesTheFileThenItsFolder();
    void inPlace_flushesTheCopyItsFolderThenTheFile();
    void replace_stepFails_keepsOld_data();
    void replace_stepFails_keepsOld();
    void replace_renameFails_writesInPlace();
    void newFile_stepFails_leavesNothing_data();
    void newFile_stepFails_leavesNothing();
    void inPlace_stepFails_putsTheOldBack_data();
    void inPlace_stepFails_putsTheOldBack();
    void inPlace_puttingBackFails_leavesTheCopyAndNamesIt();
    void inPlace_noCopyCanBeMade_leavesTheFileAlone_data();
    void inPlace_noCopyCanBeMade_leavesTheFileAlone();
    void inPlace_copyFailsInTwoWays_reportsTheLackOfRoom_data();
    void inPlace_copyFailsInTwoWays_reportsTheLackOfRoom();

private:
    QStringList names() const
    {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }
    void makeOldFile(bool inPlace);
    /// The save, with \a steps in its way.
    bool save(decltype(fault) steps);

    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_native;
    QString m_file;
    FileFailure m_why;
};

void tst_FailingDisk::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_file = m_folder->filePath("piece.csd");
    m_native = QFile::encodeName(m_file);
    m_why = {};
    QVERIFY(m_folder->isValid());
}

void tst_FailingDisk::cleanup() { fault = nullptr; }

void tst_FailingDisk::makeOldFile(bool inPlace)
{
    writeBytes(m_file, OldBytes);
    const QByteArray second = QFile::encodeName(m_folder->filePath("second"));
    if (inPlace)
        require(::link(m_native.constData(), second.constData()) == 0, "cannot make a second name");
}

bool tst_FailingDisk::save(decltype(fault) steps)
{
    fault = std::move(steps);
    const auto written = writeDocumentFile(m_file, NewBytes);
    fault = nullptr;
    m_why = written.failure();
    return bool(written);
}

/// Without both, a power cut may leave neither the old text nor the new one.
void tst_FailingDisk::replace_flushesTheFileThenItsFolder()
{
    makeOldFile(false);
    QStringList steps;
    QVERIFY(save([&](Call call, const QByteArray &path) {
        const QString name = QFile::decodeName(path);
        if (call == Call::Rename)
            steps.append("rename " + QFileInfo(name).fileName());
        if (call == Call::Flush && name.contains("/.ardiphon-"))
            steps.append("flush new file");
        else if (call == Call::Flush)
            steps.append("flush " + name);
        return 0;
    }));
    QCOMPARE(steps, QStringList({"flush new file", "rename piece.csd",
                                 "flush " + QFileInfo(m_folder->path()).canonicalFilePath()}));
}

void tst_FailingDisk::inPlace_flushesTheCopyItsFolderThenTheFile()
{
    makeOldFile(true);
    QStringList steps;
    QVERIFY(save([&](Call call, const QByteArray &path) {
        const QString name = QFile::decodeName(path);
        const QString step = call == Call::Flush ? "flush " : "write ";
        const QString what = name.contains("/.ardiphon-") ? "copy"
                             : path == m_native           ? "file"
                                                          : "folder";
        if (call == Call::Flush || call == Call::Write)
            steps.append(step + what);
        return 0;
    }));
    QCOMPARE(steps,
             QStringList({"write copy", "flush copy", "flush folder", "write file", "flush file"}));
}

void tst_FailingDisk::replace_stepFails_keepsOld_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("reason");
    const QString system = QStringLiteral("the system reports \"Input/output error\"");
    QTest::newRow("no room") << int(Call::Write) << ENOSPC << "the disk is full";
    QTest::newRow("quota") << int(Call::Write) << EDQUOT << "your share of the disk is used up";
    QTest::newRow("write") << int(Call::Write) << EIO << system;
    QTest::newRow("flush") << int(Call::Flush) << EIO << system;
}

void tst_FailingDisk::replace_stepFails_keepsOld()
{
    QFETCH(int, call);
    QFETCH(int, error);
    QFETCH(QString, reason);
    makeOldFile(false);
    QVERIFY(!save([&](Call each, const QByteArray &) { return each == Call(call) ? error : 0; }));
    QCOMPARE(get(m_file), OldBytes);
    QCOMPARE(names(), QStringList("piece.csd"));
    QCOMPARE(notSavedText("piece.csd", m_why),
             "The file \"piece.csd\" was not saved: " + reason + ".");
}

void tst_FailingDisk::replace_renameFails_writesInPlace()
{
    makeOldFile(false);
    QVERIFY(save([](Call call, const QByteArray &) { return call == Call::Rename ? EBUSY : 0; }));
    QCOMPARE(get(m_file), NewBytes);
    QCOMPARE(names(), QStringList("piece.csd"));
}

void tst_FailingDisk::newFile_stepFails_leavesNothing_data()
{
    replace_stepFails_keepsOld_data();
    QTest::newRow("rename") << int(Call::Rename) << EACCES << "permission is denied";
}

void tst_FailingDisk::newFile_stepFails_leavesNothing()
{
    QFETCH(int, call);
    QFETCH(int, error);
    QFETCH(QString, reason);
    QVERIFY(!save([&](Call each, const QByteArray &) { return each == Call(call) ? error : 0; }));
    QCOMPARE(names(), QStringList());
    QCOMPARE(reasonText(m_why, QString()), reason);
}

void tst_FailingDisk::inPlace_stepFails_putsTheOldBack_data()
{
    QTest::addColumn<int>("call");
    QTest::newRow("write") << int(Call::Write);
    QTest::newRow("truncate") << int(Call::Truncate);
    QTest::newRow("flush") << int(Call::Flush);
}

void tst_FailingDisk::inPlace_stepFails_putsTheOldBack()
{
    QFETCH(int, call);
    makeOldFile(true);
    const QDateTime before = QFileInfo(m_file).lastModified();
    int failures = 0;
    QVERIFY(!save([&](Call each, const QByteArray &path) {
        return each == Call(call) && path == m_native && ++failures == 1 ? EIO : 0;
    }));
    QCOMPARE(get(m_file), OldBytes);
    QCOMPARE(names(), QStringList({"piece.csd", "second"}));
    QCOMPARE(QFileInfo(m_file).lastModified(), before); // nobody changed it
    QCOMPARE(m_why, FileFailure::ofSystem(EIO));
}

void tst_FailingDisk::inPlace_puttingBackFails_leavesTheCopyAndNamesIt()
{
    makeOldFile(true);
    QVERIFY(!save([&](Call call, const QByteArray &path) {
        return call == Call::Truncate && path == m_native ? EIO : 0;
    }));
    QCOMPARE(names().size(), 3);
    const QString copy = m_folder->filePath(names().constFirst());
    QVERIFY2(copy.contains("/.ardiphon-"), qPrintable(copy));
    QCOMPARE(get(copy), OldBytes);
    QCOMPARE(m_why.oldContent, copy);
    QCOMPARE(notSavedText("piece.csd", m_why),
             "The file \"piece.csd\" was not saved: the system reports \"Input/output error\"; "
             "what it held before lies in \"" +
                 copy + "\".");
}

void tst_FailingDisk::inPlace_noCopyCanBeMade_leavesTheFileAlone_data()
{
    QTest::addColumn<int>("call");
    QTest::newRow("write") << int(Call::Write);
    QTest::newRow("flush") << int(Call::Flush);
}

void tst_FailingDisk::inPlace_noCopyCanBeMade_leavesTheFileAlone()
{
    QFETCH(int, call);
    makeOldFile(true);
    const QDir temporary = QDir::temp();
    const QStringList before = temporary.entryList(QDir::Files | QDir::Hidden);
    int touched = 0;
    QVERIFY(!save([&](Call each, const QByteArray &path) {
        touched += path == m_native;
        return each == Call(call) && path != m_native ? ENOSPC : 0;
    }));
    QCOMPARE(touched, 0);
    QCOMPARE(get(m_file), OldBytes);
    QCOMPARE(names(), QStringList({"piece.csd", "second"}));
    QCOMPARE(temporary.entryList(QDir::Files | QDir::Hidden), before);
    QCOMPARE(m_why.kind, FileFailure::Kind::DiskFull);
}

void tst_FailingDisk::inPlace_copyFailsInTwoWays_reportsTheLackOfRoom_data()
{
    QTest::addColumn<int>("beside");
    QTest::addColumn<int>("elsewhere");
    QTest::newRow("beside the file") << ENOSPC << EIO;
    QTest::newRow("in the temporary folder") << EIO << ENOSPC;
}

/// Only one of the two reasons can be reported: the one that the user can do something about.
void tst_FailingDisk::inPlace_copyFailsInTwoWays_reportsTheLackOfRoom()
{
    QFETCH(int, beside);
    QFETCH(int, elsewhere);
    makeOldFile(true);
    const QByteArray folder = QFile::encodeName(m_folder->path()) + '/';
    QVERIFY(!save([&](Call, const QByteArray &path) {
        return path == m_native ? 0 : path.startsWith(folder) ? beside : elsewhere;
    }));
    QCOMPARE(get(m_file), OldBytes);
    QCOMPARE(m_why.kind, FileFailure::Kind::DiskFull);
}

ARDIPHON_TEST(tst_FailingDisk, QCoreApplication)
#include "tst_FailingDisk.moc"
