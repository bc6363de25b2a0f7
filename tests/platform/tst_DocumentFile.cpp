// A document's file is read whole or not at all, and written whole or not at all.

#include "platform/DocumentFile.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <functional>
#include <string>

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

void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

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

// A file system of 4 MB at \a folder, seen by this process alone, which is its superuser.
bool mountSmallDisk(const char *folder)
{
    const QByteArray user = "0 " + QByteArray::number(::geteuid()) + " 1";
    const QByteArray group = "0 " + QByteArray::number(::getegid()) + " 1";
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    put("/proc/self/setgroups", "deny");
    put("/proc/self/uid_map", user);
    put("/proc/self/gid_map", group);
    return ::mount("tmpfs", folder, "tmpfs", 0, "size=4m") == 0;
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
    void write_protectedFile_isRefused();
    void write_folderWithoutRight_writesInPlace();
    void write_noRegularFile_isRefused_data();
    void write_noRegularFile_isRefused();
    void write_leavesNoOtherFile();

    void write_fullDisk_keepsOld_data();
    void write_fullDisk_keepsOld();
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
    put(m_file, OldBytes);
    if (inPlace)
        QVERIFY(QFile::exists(path("second")) ||
                ::link(native(m_file).c_str(), native(path("second")).c_str()) == 0);
}

void tst_DocumentFile::read_file_givesAllBytes()
{
    put(m_file, OldBytes);
    QCOMPARE(readDocumentFile(m_file), OldBytes);
    put(m_file, {});
    QCOMPARE(readDocumentFile(m_file), QByteArray());
}

void tst_DocumentFile::read_sizeUnknownBeforehand_givesAllBytes()
{
    // As a file that grows while it is read: the system tells 0 bytes for it.
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
    const bool written = writeDocumentFile(m_file, NewBytes);
    ::umask(before);
    QVERIFY(written);
    QCOMPARE(get(m_file), NewBytes);
    QCOMPARE(statusOf(m_file).st_mode & 07777, 0640u);
}

void tst_DocumentFile::write_existing_keepsModeAndGroup()
{
    put(m_file, OldBytes);
    const std::string file = native(m_file);
    const char *name = file.c_str();
    const gid_t group = ::geteuid() == 0 ? 12345 : ::getegid();
    QCOMPARE(::chown(name, uid_t(-1), group), 0);
    QCOMPARE(::chmod(name, 0604), 0);
    QVERIFY(writeDocumentFile(m_file, NewBytes));
    QCOMPARE(get(m_file), NewBytes);
    QCOMPARE(statusOf(m_file).st_mode & 07777, 0604u);
    QCOMPARE(statusOf(m_file).st_gid, group);
}

void tst_DocumentFile::write_existing_keepsAttributes()
{
    put(m_file, OldBytes);
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
    put(path("pieces/first.csd"), OldBytes);
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
    put(m_file, OldBytes);
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
void tst_DocumentFile::write_protectedFile_isRefused()
{
    put(m_file, OldBytes);
    QCOMPARE(::chmod(native(m_file).c_str(), 0444), 0);
    QCOMPARE(::chmod(native(m_folder->path()).c_str(), 0777), 0);
    QCOMPARE(inChild([&] {
                 if (::geteuid() == 0 && ::seteuid(12345) != 0)
                     return NotPossibleHere;
                 return writeDocumentFile(m_file, NewBytes) ? 1 : 0;
             }),
             0);
    QCOMPARE(get(m_file), OldBytes);
}

void tst_DocumentFile::write_folderWithoutRight_writesInPlace()
{
    put(m_file, OldBytes);
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
    put(m_file, OldBytes);
    QVERIFY(QDir(m_folder->path()).mkdir("sub"));
    QCOMPARE(::mkfifo(native(path("fifo")).c_str(), 0600), 0);
    const QStringList before = names();
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
        put(m_file, old);
        if (inPlace)
            QFile::exists(path("second")) ||
                ::link(native(m_file).c_str(), native(path("second")).c_str());
        if (writeDocumentFile(m_file, QByteArray(8'000'000, 'n')))
            return 1;
        return get(m_file) == old && names().size() == (inPlace ? 2 : 1) ? 0 : 2;
    });
    if (result == NotPossibleHere)
        QSKIP("no file system may be mounted here");
    QCOMPARE(result, 0);
}

void tst_DocumentFile::write_readOnlyDisk_keepsOld()
{
    const int result = inChild([&] {
        const std::string path8 = native(m_folder->path());
        const char *folder = path8.c_str();
        if (!mountSmallDisk(folder))
            return NotPossibleHere;
        put(m_file, OldBytes);
        if (::mount(nullptr, folder, nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0)
            return NotPossibleHere;
        if (writeDocumentFile(m_file, NewBytes) || writeDocumentFile(path("new.csd"), NewBytes))
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
        if (!killedAt(stops, [&] { writeDocumentFile(m_file, NewBytes); }))
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
