#include "preferences/FolderReader.h"
#include "support/FileBytes.h"
#include "support/TestMain.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

namespace {

QStringList namesIn(const QString &folder)
{
    FolderReader reader(folder);
    while (!reader.readOn(1000))
        ;
    return reader.names();
}

} // namespace

/// The folders in a folder.
class tst_FolderReader : public QObject
{
    Q_OBJECT

private slots:
    void names_areFoldersInOrder();
    void names_ofLinks();
    void unreadable_isEmpty();
    void large_isReadInSlices();

private:
    QTemporaryDir m_folder;
    QString inFolder(const QString &name) const { return m_folder.filePath(name); }
    void makeFile(const QString &name) const { writeBytes(inFolder(name), {}); }
};

void tst_FolderReader::names_areFoldersInOrder()
{
    for (const char *name : {"a/b", "a/A", "a/a", "a/C c", "a/.hidden", "a/\u00e9", "a/B"})
        QVERIFY(QDir().mkpath(inFolder(QString::fromUtf8(name))));
    makeFile(QStringLiteral("a/file"));
    QCOMPARE(namesIn(inFolder(QStringLiteral("a"))),
             (QStringList{"A", "a", "B", "b", "C c", QStringLiteral("\u00e9")}));
}

void tst_FolderReader::names_ofLinks()
{
    QVERIFY(QDir().mkpath(inFolder(QStringLiteral("l/target"))));
    makeFile(QStringLiteral("l/file"));
    QVERIFY(QFile::link(inFolder(QStringLiteral("l")), inFolder(QStringLiteral("l/circle"))));
    QVERIFY(QFile::link(inFolder(QStringLiteral("l/file")), inFolder(QStringLiteral("l/plain"))));
    QVERIFY(QFile::link(inFolder(QStringLiteral("l/gone")), inFolder(QStringLiteral("l/broken"))));
    QVERIFY(QFile::link(inFolder(QStringLiteral("l/self")), inFolder(QStringLiteral("l/self"))));
    QCOMPARE(namesIn(inFolder(QStringLiteral("l"))), (QStringList{"circle", "target"}));
}

void tst_FolderReader::unreadable_isEmpty()
{
    QCOMPARE(namesIn(inFolder(QStringLiteral("gone"))), QStringList());
    QCOMPARE(namesIn(QString()), QStringList());
    makeFile(QStringLiteral("plain"));
    QCOMPARE(namesIn(inFolder(QStringLiteral("plain"))), QStringList());
}

/// Files count as well: a slice ends among them too.
void tst_FolderReader::large_isReadInSlices()
{
    for (int i = 0; i < 700; ++i)
        makeFile(QStringLiteral("f%1").arg(i));
    FolderReader reader(m_folder.path());
    int slices = 1;
    while (!reader.readOn(0))
        ++slices;
    QVERIFY(slices >= 3);
    QVERIFY(reader.readOn(0));
}

ARDIPHON_TEST(tst_FolderReader, QCoreApplication)
#include "tst_FolderReader.moc"
