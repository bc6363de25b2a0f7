#include "platform/FileName.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace ardiphon;

/// Names of files that are no texts.
class tst_FileName : public QObject
{
    Q_OBJECT

private slots:
    void namable_utf8Alone_data();
    void namable_utf8Alone();
    void namable_relativeName_needsTheCurrentFolderToo();
    void broken_replacedCharacters_unlessThereIsSuchAFile();
};

void tst_FileName::namable_utf8Alone_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("namable");
    QTest::newRow("ascii") << QByteArray("/a/piece.csd") << true;
    QTest::newRow("utf-8") << QByteArray("/a/\xc3\xa9tude.csd") << true;
    QTest::newRow("latin-1") << QByteArray("/a/\xe9tude.csd") << false;
    QTest::newRow("cut short") << QByteArray("/a/\xc3") << false;
    QTest::newRow("in the folder") << QByteArray("/\xe9/piece.csd") << false;
    QTest::newRow("replacement character") << QByteArray("/a/\xef\xbf\xbd.csd") << true;
}

void tst_FileName::namable_utf8Alone()
{
    QFETCH(QByteArray, name);
    QTEST(isNamable(name), "namable");
}

void tst_FileName::namable_relativeName_needsTheCurrentFolderToo()
{
    const QString before = QDir::currentPath();
    const QTemporaryDir parent;
    const QByteArray folder = QFile::encodeName(parent.path()) + "/\xe9";
    QCOMPARE(::mkdir(folder.constData(), 0700), 0);
    QVERIFY(isNamable("piece.csd"));
    QCOMPARE(::chdir(folder.constData()), 0);
    const bool relative = isNamable("piece.csd");
    const bool absolute = isNamable("/a/piece.csd");
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(::rmdir(folder.constData()), 0);
    QVERIFY(!relative);
    QVERIFY(absolute);
}

void tst_FileName::broken_replacedCharacters_unlessThereIsSuchAFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("piece\uFFFD.csd"));
    QVERIFY(isBrokenName(path));
    QVERIFY(!isBrokenName(folder.filePath(QStringLiteral("piece.csd"))));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(!isBrokenName(path));
    QCOMPARE(brokenNameText(QStringLiteral("/a.csd")),
             QStringLiteral("The file \"/a.csd\" cannot be opened: its name is not UTF-8."));
}

ARDIPHON_TEST(tst_FileName, QCoreApplication)
#include "tst_FileName.moc"
