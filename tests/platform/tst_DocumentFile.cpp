// A document's file is read whole or not at all, and written whole or not at all.

#include "platform/DocumentFile.h"
#include "platform/FileFailure.h"
#include "support/FileBytes.h"
#include "support/Require.h"
#include "support/TestMain.h"
#include "support/TimeLimit.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <functional>
#include <string>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace ardiphon;

namespace {

// The longer one is the old, so that writing in place goes over a mixture of both.
const QByteArray OldBytes = QByteArray("old text\n").repeated(2000);
const QByteArray NewBytes = QByteArray("the new one\r\n").repeated(900);

QByteArray get(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not there)");
}

std::string native(const QString &path) { return QFile::encodeName(path).toStdString(); }

struct stat statusOf(const QString &path)
{
    struct stat status = {};
    ::lstat(native(path).c_str(), &status);
    return status;
}

constexpr int NotPossibleHere = 77;

// What the step gives, run in a process of its own that it may restrict as it likes.
int inChild(const std::function<int()> &step)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(step());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// To be called in a process of its own: the superuser becomes somebody who may not write
// everywhere.
bool becomePlainUser() { return ::geteuid() != 0 || ::seteuid(12345) == 0; }

// Around the buffers of the system, of files and of pages.
const QList<qsizetype> Sizes{0, 1, 4094, 4095, 4096, 4097, 8192, 16384, 16385, 65537};
const QList<qsizetype> OldSizes{0, 1, 4095, 16385};

// A text of that size, which no other has at its beginning.
QByteArray bytesOf(qsizetype size, char first)
{
    QByteArray bytes(size, 'x');
    for (qsizetype i = 0; i < size; ++i)
        bytes[i] = char(first + i % 23);
    return bytes;
}

// A file system of 4 MB at \a folder, seen by this process alone, which is its superuser.
bool mountSmallDisk(const char *folder)
{
    const QByteArray user = "0 " + QByteArray::number(::geteuid()) + " 1";
    const QByteArray group = "0 " + QByteArray::number(::getegid()) + " 1";
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    writeBytes("/proc/self/setgroups", "deny");
    writeBytes("/proc/self/uid_map", user);
    writeBytes("/proc/self/gid_map", group);
    return ::mount("tmpfs", folder, "tmpfs", 0, "size=4m") == 0;
}

// Takes every free byte of a disk.
void fillDisk(const QString &ballast)
{
    const int file = ::open(native(ballast).c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    const QByteArray block(4096, 'x');
    while (::write(file, block.constData(), size_t(block.size())) == block.size()) {
    }
    ::close(file);
}

// Runs the step and kills it at its \a stop th entry into or return from the system. True when it
// came so far.
bool killedAt(int stop, const std::function<void()> &step)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        step();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    for (int i = 0; i < stop && !WIFEXITED(status); ++i) {
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        ::waitpid(child, &status, 0);
    }
    if (WIFEXITED(status))
        return false;
    ::kill(child, SIGKILL);
    ::waitpid(child, &status, 0);
    return true;
}

} // namespace

class tst_DocumentFile : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void read_file_givesAllBytes();
    void read_sizeUnknownBeforehand_givesAllBytes();
    void read_noRegularFile_givesNothing_data();
    void read_noRegularFile_givesNothing();
    void read_tooLarge_givesNothing();

    void write_newFile_hasUsualMode();
    void write_existing_keepsModeAndGroup();
    void write_existing_keepsAttributes();
    void write_symbolicLink_keepsIt();
    void write_danglingLink_makesItsFile();
    void write_linksInACircle_isRefused();
    void write_hardLink_keepsIt();
    void write_otherOwner_keepsIt();
    void write_protectedFile_isRefused_data();
    void write_protectedFile_isRefused();
    void write_folderWithoutRight_writesInPlace();
    void write_noRegularFile_isRefused_data();
    void write_noRegularFile_isRefused();
    void write_leavesNoOtherFile();
    void write_anySize_isWhole_data();
    void write_anySize_isWhole();

    void read_refused_givesTheReason_data();
    void read_refused_givesTheReason();
    void write_refused_givesTheReason_data();
    void write_refused_givesTheReason();
    void write_done_leavesTheReasonAlone();

    void write_fullDisk_keepsOld_data();
    void write_fullDisk_keepsOld();
    void write_fullDiskWithRoomInTheFile_writesInPlace();
    void write_fullDiskWithoutRoomForACopy_keepsOld();
    void write_fullDisk_leavesFileAndTimeAlone();
    void write_mountedFile_writesInPlace();
    void write_readOnlyDisk_keepsOld();
    void write_sizeLimit_keepsOld_data();
    void write_sizeLimit_keepsOld();
    void write_killedAnywhere_holdsOldOrNew_data();
    void write_killedAnywhere_holdsOldOrNew();

private:
    QString path(const QString &name) const
    {
        return QDir(m_folder->path()).absoluteFilePath(name);
    }
    QStringList names() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    void makeOldFile(bool inPlace);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

void tst_DocumentFile::init()
{
    // Where every user may go, as the tests that become somebody else need it.
    m_folder = std::make_unique<QTemporaryDir>("/tmp/tst_DocumentFile-XXXXXX");
    m_file = path("piece.csd");
}

// A second name makes a rename impossible.
void tst_DocumentFile::makeOldFile(bool inPlace)
{
    writeBytes(m_file, OldBytes);
    if (inPlace)
        require(QFile::exists(path("second")) ||
                    ::link(native(m_file).c_str(), native(path("second")).c_str()) == 0,
                "cannot make a second name");
}

void tst_DocumentFile::read_file_givesAllBytes()
{
    writeBytes(m_file, OldBytes);
    QCOMPARE(*readDocumentFile(m_file), OldBytes);
    writeBytes(m_file, {});
    QCOMPARE(*readDocumentFile(m_file), QByteArray());
}

void tst_DocumentFile::read_sizeUnknownBeforehand_givesAllBytes()
{
    // As a file that grows while it is read: the system reports 0 bytes for it.
    const auto bytes = readDocumentFile("/proc/self/status");
    QVERIFY(bytes && bytes->startsWith("Name:") && bytes->endsWith('\n'));
}

void tst_DocumentFile::read_noRegularFile_givesNothing_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("missing") << "missing";
    QTest::newRow("folder") << ".";
    QTest::newRow("fifo") << "fifo";
    QTest::newRow("device") << "/dev/zero";
    QTest::newRow("nul in its name") << QString::fromLatin1("piece\0.csd", 10);
}

void tst_DocumentFile::read_noRegularFile_givesNothing()
{
    QFETCH(QString, file);
    QCOMPARE(::mkfifo(native(path("fifo")).c_str(), 0600), 0);
    const TimeLimit limit; // a pipe or a device could be read for ever
    QVERIFY(!readDocumentFile(path(file)));
    QVERIFY(!readDocumentFile(QString()));
}

void tst_DocumentFile::read_tooLarge_givesNothing()
{
    QFile file(m_file);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(LargestDocument + 1));
    QVERIFY(!readDocumentFile(m_file));
}

void tst_DocumentFile::write_newFile_hasUsualMode()
{
    const mode_t before = ::umask(027);
    const bool written = bool(writeDocumentFile(m_file, NewBytes));
    ::umask(before);
    QVERIFY(written);
    QCOMPARE(get(m_file), NewBytes);
    QCOMPARE(statusOf(m_file).st_mode & 07777, 0640u);
}

void tst_DocumentFile::write_existing_keepsModeAndGroup()
{
    writeBytes(m_file, OldBytes);
    const std::string file = native(m_file);
    const char *name = file.c_str();
    const gid_t group = ::geteuid() == 0 ? 12345 : ::getegid();
    QCOMPARE(::chown(name, uid_t(-1), group), 0);
    for (const mode_t mode : {0604u, 01604u}) { // the bit beside the rights counts too
        QCOMPARE(::chmod(name, mode), 0);
        QVERIFY(writeDocumentFile(m_file, NewBytes));
        QCOMPARE(get(m_file), NewBytes);
        QCOMPARE(statusOf(m_file).st_mode & 07777, mode);
        QCOMPARE(statusOf(m_file).st_gid, group);
    }
}

void tst_DocumentFile::write_existing_keepsAttributes()
{
    writeBytes(m_file, OldBytes);
    const std::string file = native(m_file);
    const char *name = file.c_str();
    if (::setxattr(name, "user.composer", "Ada", 3, 0) != 0)
        QSKIP("this file system has no extended attributes");
    QVERIFY(writeDocumentFile(m_file, NewBytes));
    char value[8] = {};
    QCOMPARE(::getxattr(name, "user.composer", value, sizeof value), 3);
    QCOMPARE(value, "Ada");
    QCOMPARE(get(m_file), NewBytes);
}

void tst_DocumentFile::write_symbolicLink_keepsIt()
{
    QVERIFY(QDir(m_folder->path()).mkdir("pieces"));
    writeBytes(path("pieces/first.csd"), OldBytes);
    QVERIFY(QFile::link("pieces/first.csd", path("middle")));
    QVERIFY(QFile::link(path("middle"), m_file));
    QVERIFY(writeDocumentFile(m_file, NewBytes));
    QVERIFY(QFileInfo(m_file).isSymLink() && QFileInfo(path("middle")).isSymLink());
    QCOMPARE(get(path("pieces/first.csd")), NewBytes);
}

void tst_DocumentFile::write_danglingLink_makesItsFile()
{
    QVERIFY(QFile::link("later.csd", m_file));
    QVERIFY(writeDocumentFile(m_file, NewBytes));
    QVERIFY(QFileInfo(m_file).isSymLink());
    QCOMPARE(get(path("later.csd")), NewBytes);
}

void tst_DocumentFile::write_linksInACircle_isRefused()
{
    QVERIFY(QFile::link(path("b"), path("a")));
    QVERIFY(QFile::link(path("a"), path("b")));
    QVERIFY(!writeDocumentFile(path("a"), NewBytes));
    QCOMPARE(names(), QStringList({"a", "b"}));
}

void tst_DocumentFile::write_hardLink_keepsIt()
{
    makeOldFile(true);
    for (const QByteArray &bytes : {NewBytes, QByteArray("short")}) {
        QVERIFY(writeDocumentFile(m_file, bytes));
        QCOMPARE(get(path("second")), bytes);
        QCOMPARE(statusOf(m_file).st_nlink, nlink_t(2));
    }
    QCOMPARE(names(), QStringList({"piece.csd", "second"}));
}

void tst_DocumentFile::write_otherOwner_keepsIt()
{
    writeBytes(m_file, OldBytes);
    if (::chown(native(m_file).c_str(), 12345, 12345) != 0)
        QSKIP("only the superuser may give a file away");
    const auto before = statusOf(m_file);
    QVERIFY(writeDocumentFile(m_file, NewBytes));
    QCOMPARE(get(m_file), NewBytes);
    QCOMPARE(statusOf(m_file).st_uid, 12345u);
    QCOMPARE(statusOf(m_file).st_ino, before.st_ino);
    QCOMPARE(names(), QStringList("piece.csd"));
}

// The superuser may write everywhere, so these two become somebody else for the while.
void tst_DocumentFile::write_protectedFile_isRefused_data()
{
    QTest::addColumn<bool>("own");
    QTest::newRow("one's own") << true;
    QTest::newRow("another's") << false;
}

void tst_DocumentFile::write_protectedFile_isRefused()
{
    QFETCH(bool, own);
    writeBytes(m_file, OldBytes);
    if (!own && ::geteuid() != 0)
        QSKIP("only the superuser may give a file away");
    const uid_t owner = ::geteuid() != 0 ? ::geteuid() : own ? 12345 : 12346;
    QCOMPARE(::chown(native(m_file).c_str(), owner, gid_t(-1)), 0);
    QCOMPARE(::chmod(native(m_file).c_str(), 0444), 0);
    QCOMPARE(::chmod(native(m_folder->path()).c_str(), 0777), 0);
    QCOMPARE(inChild([&] {
                 if (!becomePlainUser())
                     return NotPossibleHere;
                 const auto written = writeDocumentFile(m_file, NewBytes);
                 if (written)
                     return 1;
                 return written.failure().kind == FileFailure::Kind::NoPermission ? 0 : 2;
             }),
             0);
    QCOMPARE(get(m_file), OldBytes);
    QCOMPARE(names(), QStringList("piece.csd"));
}

void tst_DocumentFile::write_folderWithoutRight_writesInPlace()
{
    writeBytes(m_file, OldBytes);
    QCOMPARE(::chmod(native(m_file).c_str(), 0666), 0);
    QCOMPARE(::chmod(native(m_folder->path()).c_str(), 0555), 0);
    const int result = inChild([&] {
        ::setenv("TMPDIR", "/tmp", 1);
        if (::geteuid() == 0 && ::seteuid(12345) != 0)
            return NotPossibleHere;
        return writeDocumentFile(m_file, NewBytes) ? 0 : 1;
    });
    ::chmod(native(m_folder->path()).c_str(), 0700);
    QCOMPARE(result, 0);
    QCOMPARE(get(m_file), NewBytes);
}

void tst_DocumentFile::write_noRegularFile_isRefused_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("folder") << "sub";
    QTest::newRow("folder with its slash") << "sub/";
    QTest::newRow("fifo") << "fifo";
    QTest::newRow("device") << "/dev/null";
    QTest::newRow("in a missing folder") << "missing/piece.csd";
    QTest::newRow("below a file") << "piece.csd/x";
    QTest::newRow("nul in its name") << QString::fromLatin1("piece\0.csd", 10);
    QTest::newRow("name too long") << QString(300, u'x');
}

void tst_DocumentFile::write_noRegularFile_isRefused()
{
    QFETCH(QString, file);
    writeBytes(m_file, OldBytes);
    QVERIFY(QDir(m_folder->path()).mkdir("sub"));
    QCOMPARE(::mkfifo(native(path("fifo")).c_str(), 0600), 0);
    const QStringList before = names();
    const TimeLimit limit; // a pipe could be waited for
    QVERIFY(!writeDocumentFile(path(file), NewBytes));
    QVERIFY(!writeDocumentFile(QString(), NewBytes));
    QCOMPARE(names(), before);
    QCOMPARE(get(m_file), OldBytes);
    QVERIFY(S_ISCHR(statusOf("/dev/null").st_mode));
}

void tst_DocumentFile::write_leavesNoOtherFile()
{
    QVERIFY(writeDocumentFile(m_file, OldBytes));
    QVERIFY(writeDocumentFile(m_file, NewBytes));
    QCOMPARE(names(), QStringList("piece.csd"));
}

void tst_DocumentFile::write_anySize_isWhole_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("new file") << "new";
    QTest::newRow("replaced") << "replaced";
    QTest::newRow("two hard links") << "links";
    QTest::newRow("another owner") << "owner";
    QTest::newRow("folder without right") << "folder";
}

void tst_DocumentFile::write_anySize_isWhole()
{
    QFETCH(QString, way);
    if (way == "owner" && ::geteuid() != 0)
        QSKIP("only the superuser may give a file away");
    const std::string folder = native(m_folder->path());
    const auto write = [&](const QByteArray &bytes) {
        if (way != "folder")
            return bool(writeDocumentFile(m_file, bytes));
        return inChild([&] {
                   ::setenv("TMPDIR", "/tmp", 1);
                   return becomePlainUser() && writeDocumentFile(m_file, bytes) ? 0 : 1;
               }) == 0;
    };
    for (const qsizetype oldSize : way == "new" ? QList<qsizetype>{0} : OldSizes) {
        for (const qsizetype size : Sizes) {
            ::chmod(folder.c_str(), 0700);
            QFile::remove(m_file);
            QFile::remove(path("second"));
            if (way != "new")
                writeBytes(m_file, bytesOf(oldSize, 'A'));
            if (way == "links")
                QCOMPARE(::link(native(m_file).c_str(), native(path("second")).c_str()), 0);
            if (way == "owner")
                QCOMPARE(::chown(native(m_file).c_str(), 12345, 12345), 0);
            if (way == "folder") {
                ::chmod(native(m_file).c_str(), 0666);
                ::chmod(folder.c_str(), 0555);
            }
            const bool written = write(bytesOf(size, 'a'));
            const QByteArray found = get(m_file);
            QVERIFY2(written && found == bytesOf(size, 'a'),
                     qPrintable(QStringLiteral("%1 bytes over %2").arg(size).arg(oldSize)));
            QCOMPARE(*readDocumentFile(m_file), found);
            QCOMPARE(names().size(), way == "links" ? 2 : 1);
        }
    }
    ::chmod(folder.c_str(), 0700);
}

void tst_DocumentFile::read_refused_givesTheReason_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << "missing"
                             << "it does not exist";
    QTest::newRow("folder") << "sub"
                            << "it is a folder";
    QTest::newRow("fifo") << "fifo"
                          << "it is no regular file";
    QTest::newRow("device") << "/dev/zero"
                            << "it is no regular file";
    QTest::newRow("circle") << "circle"
                            << "its links lead in a circle";
    QTest::newRow("name too long") << QString(300, u'x') << "its name is too long";
    QTest::newRow("too large") << "large"
                               << "it is larger than 512 MB";
    QTest::newRow("nul in its name")
        << QString::fromLatin1("piece\0.csd", 10) << "the system reports \"Invalid argument\"";
}

void tst_DocumentFile::read_refused_givesTheReason()
{
    QFETCH(QString, file);
    QVERIFY(QDir(m_folder->path()).mkdir("sub"));
    QVERIFY(QFile::link("circle", path("circle")));
    QCOMPARE(::mkfifo(native(path("fifo")).c_str(), 0600), 0);
    QFile large(path("large"));
    QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(LargestDocument + 1));
    const auto read = readDocumentFile(path(file));
    QVERIFY(!read);
    QFETCH(QString, reason);
    QCOMPARE(notOpenedText("a.csd", read.failure()),
             "The file \"a.csd\" cannot be opened: " + reason + ".");
}

void tst_DocumentFile::write_refused_givesTheReason_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("reason");
    QTest::newRow("folder") << "sub"
                            << "it is a folder";
    QTest::newRow("folder with its slash") << "sub/"
                                           << "it is a folder";
    QTest::newRow("fifo") << "fifo"
                          << "it is no regular file";
    QTest::newRow("device") << "/dev/null"
                            << "it is no regular file";
    QTest::newRow("circle") << "circle"
                            << "its links lead in a circle";
    QTest::newRow("folder gone") << "gone/piece.csd"
                                 << "its folder does not exist";
    QTest::newRow("below a file") << "piece.csd/x"
                                  << "its folder does not exist";
    QTest::newRow("name too long") << QString(300, u'x') << "its name is too long";
}

void tst_DocumentFile::write_refused_givesTheReason()
{
    QFETCH(QString, file);
    writeBytes(m_file, OldBytes);
    QVERIFY(QDir(m_folder->path()).mkdir("sub"));
    QVERIFY(QFile::link("circle", path("circle")));
    QCOMPARE(::mkfifo(native(path("fifo")).c_str(), 0600), 0);
    const auto written = writeDocumentFile(path(file), NewBytes);
    QVERIFY(!written);
    QFETCH(QString, reason);
    QCOMPARE(notSavedText("a.csd", written.failure()),
             "The file \"a.csd\" was not saved: " + reason + ".");
}

void tst_DocumentFile::write_done_leavesTheReasonAlone()
{
    makeOldFile(true);
    const auto written = writeDocumentFile(m_file, NewBytes);
    QVERIFY(written);
    QCOMPARE(written.failure(), FileFailure());
}

void tst_DocumentFile::write_fullDisk_keepsOld_data()
{
    QTest::addColumn<bool>("inPlace");
    QTest::newRow("beside") << false;
    QTest::newRow("in place") << true;
}

void tst_DocumentFile::write_fullDisk_keepsOld()
{
    QFETCH(bool, inPlace);
    const int result = inChild([&] {
        if (!mountSmallDisk(native(m_folder->path()).c_str()))
            return NotPossibleHere;
        const QByteArray old(1'000'000, 'o');
        writeBytes(m_file, old);
        if (inPlace)
            QFile::exists(path("second")) ||
                ::link(native(m_file).c_str(), native(path("second")).c_str());
        const auto written = writeDocumentFile(m_file, QByteArray(8'000'000, 'n'));
        if (written)
            return 1;
        if (written.failure().kind != FileFailure::Kind::DiskFull)
            return 3;
        return get(m_file) == old && names().size() == (inPlace ? 2 : 1) ? 0 : 2;
    });
    if (result == NotPossibleHere)
        QSKIP("no file system may be mounted here");
    QCOMPARE(result, 0);
}

// The bytes fit where the old ones are, and the old ones find a safe place elsewhere.
void tst_DocumentFile::write_fullDiskWithRoomInTheFile_writesInPlace()
{
    const int result = inChild([&] {
        if (!mountSmallDisk(native(m_folder->path()).c_str()))
            return NotPossibleHere;
        ::setenv("TMPDIR", "/tmp", 1);
        writeBytes(m_file, QByteArray(1'000'000, 'o'));
        fillDisk(path("ballast"));
        for (const qsizetype size : {1'000'000, 999'999, 4097, 0, 1}) {
            if (!writeDocumentFile(m_file, QByteArray(size, 'n')))
                return 1;
            if (get(m_file) != QByteArray(size, 'n') || names().size() != 2)
                return 2;
            QFile::remove(m_file);
            QFile::remove(path("ballast"));
            writeBytes(m_file, QByteArray(1'000'000, 'o'));
            fillDisk(path("ballast"));
        }
        return 0;
    });
    if (result == NotPossibleHere)
        QSKIP("no file system may be mounted here");
    QCOMPARE(result, 0);
}

void tst_DocumentFile::write_fullDiskWithoutRoomForACopy_keepsOld()
{
    const int result = inChild([&] {
        if (!mountSmallDisk(native(m_folder->path()).c_str()))
            return NotPossibleHere;
        ::setenv("TMPDIR", native(m_folder->path()).c_str(), 1);
        writeBytes(m_file, OldBytes);
        fillDisk(path("ballast"));
        const auto written = writeDocumentFile(m_file, NewBytes);
        if (written)
            return 1;
        if (get(m_file) != OldBytes || names().size() != 2)
            return 2;
        return written.failure().kind == FileFailure::Kind::DiskFull ? 0 : 3;
    });
    if (result == NotPossibleHere)
        QSKIP("no file system may be mounted here");
    QCOMPARE(result, 0);
}

// No other program has changed it, and nothing of the room that was asked for stays taken.
void tst_DocumentFile::write_fullDisk_leavesFileAndTimeAlone()
{
    const int result = inChild([&] {
        if (!mountSmallDisk(native(m_folder->path()).c_str()))
            return NotPossibleHere;
        writeBytes(m_file, OldBytes);
        fillDisk(path("ballast"));
        const auto before = statusOf(m_file);
        if (writeDocumentFile(m_file, QByteArray(2 * OldBytes.size(), 'n')))
            return 1;
        const auto after = statusOf(m_file);
        const bool sameTime = before.st_mtim.tv_sec == after.st_mtim.tv_sec &&
                              before.st_mtim.tv_nsec == after.st_mtim.tv_nsec;
        return sameTime && before.st_blocks == after.st_blocks && get(m_file) == OldBytes ? 0 : 2;
    });
    if (result == NotPossibleHere)
        QSKIP("no file system may be mounted here");
    QCOMPARE(result, 0);
}

// What is at a mount point cannot be replaced.
void tst_DocumentFile::write_mountedFile_writesInPlace()
{
    writeBytes(path("mounted"), OldBytes);
    writeBytes(m_file, "hidden");
    const int result = inChild([&] {
        const std::string other = native(path("mounted"));
        const std::string file = native(m_file);
        if (::unshare(CLONE_NEWNS) != 0 && !mountSmallDisk("/mnt"))
            return NotPossibleHere;
        ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
        if (::mount(other.c_str(), file.c_str(), nullptr, MS_BIND, nullptr) != 0)
            return NotPossibleHere;
        if (!writeDocumentFile(m_file, NewBytes))
            return 1;
        return get(m_file) == NewBytes && names().size() == 2 ? 0 : 2;
    });
    if (result == NotPossibleHere)
        QSKIP("nothing may be mounted here");
    QCOMPARE(result, 0);
    QCOMPARE(get(path("mounted")), NewBytes);
    QCOMPARE(get(m_file), "hidden");
}

void tst_DocumentFile::write_readOnlyDisk_keepsOld()
{
    const int result = inChild([&] {
        const std::string path8 = native(m_folder->path());
        const char *folder = path8.c_str();
        if (!mountSmallDisk(folder))
            return NotPossibleHere;
        writeBytes(m_file, OldBytes);
        if (::mount(nullptr, folder, nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0)
            return NotPossibleHere;
        for (const QString &file : {m_file, path("new.csd")})
            if (writeDocumentFile(file, NewBytes).failure().kind != FileFailure::Kind::ReadOnlyDisk)
                return 1;
        return get(m_file) == OldBytes ? 0 : 2;
    });
    if (result == NotPossibleHere)
        QSKIP("no file system may be mounted here");
    QCOMPARE(result, 0);
}

void tst_DocumentFile::write_sizeLimit_keepsOld_data() { write_fullDisk_keepsOld_data(); }

void tst_DocumentFile::write_sizeLimit_keepsOld()
{
    QFETCH(bool, inPlace);
    makeOldFile(inPlace);
    const QStringList before = names();
    QCOMPARE(inChild([&] {
                 const rlimit limit{8000, 8000};
                 ::signal(SIGXFSZ, SIG_IGN);
                 ::setrlimit(RLIMIT_FSIZE, &limit);
                 return writeDocumentFile(m_file, NewBytes) ? 1 : 0;
             }),
             0);
    QCOMPARE(get(m_file), OldBytes);
    QCOMPARE(names(), before);
}

void tst_DocumentFile::write_killedAnywhere_holdsOldOrNew_data() { write_fullDisk_keepsOld_data(); }

void tst_DocumentFile::write_killedAnywhere_holdsOldOrNew()
{
    QFETCH(bool, inPlace);
    int stops = 0;
    bool oldSeen = false;
    bool newSeen = false;
    for (;; ++stops) {
        makeOldFile(inPlace);
        if (!killedAt(stops, [&] { std::ignore = writeDocumentFile(m_file, NewBytes); }))
            break;
        const QByteArray found = get(m_file);
        oldSeen |= found == OldBytes;
        newSeen |= found == NewBytes;
        bool whole = found == OldBytes || found == NewBytes;
        for (const QString &name : names()) {
            if (!name.startsWith(".ardiphon-"))
                continue;
            whole |= inPlace && get(path(name)) == OldBytes;
            QFile::remove(path(name));
        }
        QVERIFY2(whole, qPrintable(QStringLiteral("killed at stop %1").arg(stops)));
    }
    QVERIFY(stops > 20 && oldSeen && newSeen);
    QCOMPARE(get(m_file), NewBytes);
}

ARDIPHON_TEST(tst_DocumentFile, QCoreApplication)
#include "tst_DocumentFile.moc"
