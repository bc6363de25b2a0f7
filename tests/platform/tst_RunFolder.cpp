#include "platform/RunFolder.h"
#include "support/TestMain.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace ardiphon;

/// The private folder of a run.
class tst_RunFolder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void path_isAPrivateFolderWithItsSlash();
    void end_removesTheFolderAndWhatIsInIt();
    void twoRuns_haveFoldersOfTheirOwn();
    void parentWithABlank_isNotUsed();
    void parentThatCannotBeUsed_isNotUsed();
    void nowhereToMakeIt_namesAFolderThatIsNone();
    void clearedAway_isMadeAgainAndGoesAtTheEnd();
    void somethingElseInItsPlace_isLeftAlone();
    void leftovers_ofDeadRuns_go();
    void leftovers_others_stay();

private:
    static qint64 deadProcess();
    QString make(const QString &name) const;

    std::optional<QTemporaryDir> m_parent;
};

void tst_RunFolder::init() { m_parent.emplace(); }

/// The number of a process that has ended.
qint64 tst_RunFolder::deadProcess()
{
    QProcess process;
    process.start(QStringLiteral("true"), QStringList());
    const qint64 number = process.waitForStarted() ? process.processId() : 0;
    process.waitForFinished();
    return number;
}

/// A folder in the parent with a file in it.
QString tst_RunFolder::make(const QString &name) const
{
    const QString path = m_parent->filePath(name);
    QDir().mkpath(path);
    QFile file(path + QStringLiteral("/tmp.txt"));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("no file in %s", qPrintable(path));
    return path;
}

void tst_RunFolder::path_isAPrivateFolderWithItsSlash()
{
    const RunFolder folder(m_parent->path());
    QVERIFY(folder.path().startsWith(m_parent->path() + "/ardiphon-"));
    QVERIFY(folder.path().endsWith(u'/'));
    QVERIFY(!folder.path().contains(u' '));
    const QFileInfo info(folder.path());
    QVERIFY(info.isDir());
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                        QFile::WriteOther | QFile::ExeOther;
    QCOMPARE(info.permissions() & others, QFile::Permissions());
}

void tst_RunFolder::end_removesTheFolderAndWhatIsInIt()
{
    QString path;
    {
        const RunFolder folder(m_parent->path());
        path = folder.path();
        QFile log(path + "tmp.txt");
        QVERIFY(log.open(QIODevice::WriteOnly));
    }
    QVERIFY(!QFileInfo::exists(path));
}

void tst_RunFolder::twoRuns_haveFoldersOfTheirOwn()
{
    const RunFolder one(m_parent->path());
    const RunFolder other(m_parent->path());
    QVERIFY(one.path() != other.path());
    QVERIFY(QFileInfo(one.path()).isDir());
}

void tst_RunFolder::parentWithABlank_isNotUsed()
{
    const QString blank = make(QStringLiteral("my folder"));
    const QString otherwise = make(QStringLiteral("otherwise"));
    const RunFolder folder(blank, otherwise);
    QVERIFY2(folder.path().startsWith(otherwise + u'/'), qPrintable(folder.path()));
    QVERIFY(QFileInfo(folder.path()).isDir());
}

void tst_RunFolder::parentThatCannotBeUsed_isNotUsed()
{
    const RunFolder folder(m_parent->filePath(QStringLiteral("missing")), m_parent->path());
    QVERIFY2(folder.path().startsWith(m_parent->path() + "/ardiphon-"), qPrintable(folder.path()));
    QVERIFY(QFileInfo(folder.path()).isDir());
}

/// A log named by a relative path would be a file of the user's. The name means nothing on
/// any machine: no folder can be made there.
void tst_RunFolder::nowhereToMakeIt_namesAFolderThatIsNone()
{
    const QString missing = m_parent->filePath(QStringLiteral("missing"));
    const RunFolder folder(missing, missing);
    QVERIFY(QDir::isAbsolutePath(folder.path()));
    QVERIFY(folder.path().endsWith(u'/'));
    QVERIFY(!QFileInfo::exists(folder.path()));
    QVERIFY(!QDir().mkpath(folder.path()));
    QVERIFY(!restoreRunFolder(folder.path()));
    QFile log(folder.path() + "tmp.txt");
    QVERIFY(!log.open(QIODevice::WriteOnly));
}

void tst_RunFolder::clearedAway_isMadeAgainAndGoesAtTheEnd()
{
    QString path;
    {
        const RunFolder folder(m_parent->path());
        path = folder.path();
        QVERIFY(restoreRunFolder(path));
        QVERIFY(QDir().rmdir(path));
        QVERIFY(restoreRunFolder(path));
        QCOMPARE(folder.path(), path);
        QCOMPARE(int(QFile::permissions(path)), 0x7700);
        QFile log(path + "tmp.txt");
        QVERIFY(log.open(QIODevice::WriteOnly));
    }
    QVERIFY(!QFileInfo::exists(path));
    QVERIFY(!restoreRunFolder(m_parent->filePath("missing/folder/")));
}

/// Somebody may have put a link there, to a folder that is not to be emptied.
void tst_RunFolder::somethingElseInItsPlace_isLeftAlone()
{
    const QString target = make(QStringLiteral("target"));
    QString path;
    {
        const RunFolder folder(m_parent->path());
        path = folder.path().chopped(1);
        QVERIFY(QDir().rmdir(path));
        QVERIFY(QFile::link(target, path));
        QVERIFY(!restoreRunFolder(folder.path()));
    }
    QVERIFY(QFileInfo(path).isSymLink());
    QVERIFY(QFileInfo::exists(target + "/tmp.txt"));
}

void tst_RunFolder::leftovers_ofDeadRuns_go()
{
    const QString dead = make(QStringLiteral("ardiphon-%1-abcdef").arg(deadProcess()));
    const RunFolder folder(m_parent->path());
    QVERIFY(!QFileInfo::exists(dead));
}

void tst_RunFolder::leftovers_others_stay()
{
    const QString living =
        make(QStringLiteral("ardiphon-%1-abcdef").arg(QCoreApplication::applicationPid()));
    const QString foreign = make(QStringLiteral("ardiphon-notes"));
    const QString other = make(QStringLiteral("other-%1-abcdef").arg(deadProcess()));
    const QString target = make(QStringLiteral("target"));
    const QString link = m_parent->filePath(QStringLiteral("ardiphon-%1-link").arg(deadProcess()));
    QVERIFY(QFile::link(target, link));
    const RunFolder folder(m_parent->path());
    for (const QString &kept : {living, foreign, other, target, link})
        QVERIFY2(QFileInfo::exists(kept), qPrintable(kept));
    QVERIFY(QFileInfo::exists(target + "/tmp.txt"));
}

ARDIPHON_TEST(tst_RunFolder, QCoreApplication)
#include "tst_RunFolder.moc"
