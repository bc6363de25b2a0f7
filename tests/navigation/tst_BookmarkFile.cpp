#include "navigation/BookmarkFile.h"
#include "platform/FileFailure.h"
#include "support/Fifo.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

class tst_BookmarkFile : public QObject
{
    Q_OBJECT

private slots:
    void path_replacesWhatFollowsTheLastPoint_data();
    void path_replacesWhatFollowsTheLastPoint();
    void text_isTheBeginningOfTheLine_data();
    void text_isTheBeginningOfTheLine();
    void write_usedSlots_givesTheseBytes();
    void write_longText_isCutAtTwentyCharacters();
    void write_allFree_removesTheFile();
    void write_folderInItsPlace_harmsNothing();
    void read_noRegularFile_isNotWaitedFor();
    void write_failing_saysWhy();
    void read_whatWasWritten_givesItBack();
    void read_noFile_givesNothing();
    void read_cutOrForeignFile_neverFails_data();
    void read_cutOrForeignFile_neverFails();

private:
    QTemporaryDir m_folder;
    QString path() const { return m_folder.filePath(QStringLiteral("piece.bkm")); }
    QByteArray bytes() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

void tst_BookmarkFile::path_replacesWhatFollowsTheLastPoint_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("path");
    QTest::newRow("plain") << "/music/piece.csd"
                           << "/music/piece.bkm";
    QTest::newRow("two points") << "/music/piece.v2.csd"
                                << "/music/piece.v2.bkm";
    QTest::newRow("none") << "/music/piece"
                          << "bkm";
    QTest::newRow("in the folder only") << "/music.old/piece"
                                        << "/music.bkm";
}

void tst_BookmarkFile::path_replacesWhatFollowsTheLastPoint()
{
    QFETCH(QString, document);
    QFETCH(QString, path);
    QCOMPARE(bookmarkFilePath(document, QStringLiteral("bkm")), path);
}

void tst_BookmarkFile::text_isTheBeginningOfTheLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("text");
    QTest::newRow("long") << "0123456789abcdefghijklmnopqrstuvwxyzABCD"
                          << "-> 0123456789abcdef";
    QTest::newRow("tab inside") << "instr\t1"
                                << "-> instr 1";
    QTest::newRow("blanks around") << "   endin      ; x"
                                   << "-> endin      ;";
    QTest::newRow("tab before") << "\tsr     = 44100"
                                << "-> sr     = 44100";
    QTest::newRow("tabs and blanks around") << " \t sr \t "
                                            << "-> sr";
    QTest::newRow("a carriage return inside") << "a\rb"
                                              << "-> a b";
    QTest::newRow("empty") << ""
                           << "-> ";
    QTest::newRow("blanks alone") << "    "
                                  << "-> ";
    QTest::newRow("a tab alone") << "\t"
                                 << "-> ";
    QTest::newRow("indented by sixteen") << "                x"
                                         << "-> ";
}

void tst_BookmarkFile::text_isTheBeginningOfTheLine()
{
    QFETCH(QString, line);
    QFETCH(QString, text);
    QCOMPARE(bookmarkText(line), text);
}

void tst_BookmarkFile::write_usedSlots_givesTheseBytes()
{
    BookmarkSet set;
    set[0] = {QStringLiteral("-> instr 1"), 7};
    set[14] = {QStringLiteral("-> e"), 123456};
    QVERIFY(*writeBookmarkFile(path(), set));

    const QByteArray none = QByteArray("[NONE]").leftJustified(20);
    QByteArray expected =
        QByteArray("7").leftJustified(20) + QByteArray("-> instr 1").leftJustified(20);
    for (int i = 0; i < 13; ++i)
        expected += none + none;
    expected += QByteArray("123456").leftJustified(20) + QByteArray("-> e").leftJustified(20);
    QCOMPARE(bytes(), expected);
    QCOMPARE(expected.size(), 600);
}

void tst_BookmarkFile::write_longText_isCutAtTwentyCharacters()
{
    BookmarkSet set;
    set[0] = {QStringLiteral("-> 0123456789abcdefgh"), 1};
    QVERIFY(*writeBookmarkFile(path(), set));
    QCOMPARE(bytes().mid(20, 20), QByteArray("-> 0123456789abcdefg"));
}

void tst_BookmarkFile::write_allFree_removesTheFile()
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    const auto written = writeBookmarkFile(path(), {});
    QVERIFY(written && !*written);
    QVERIFY(!QFile::exists(path()));
}

void tst_BookmarkFile::write_folderInItsPlace_harmsNothing()
{
    const QString folder = m_folder.filePath(QStringLiteral("folder.bkm"));
    QVERIFY(QDir().mkdir(folder));
    BookmarkSet set;
    set[0] = {QStringLiteral("-> a"), 1};
    QVERIFY(!writeBookmarkFile(folder, set));
    const auto removed = writeBookmarkFile(folder, {});
    QVERIFY(removed && !*removed);
    QVERIFY(QFileInfo(folder).isDir());
    QVERIFY(!readBookmarkFile(folder));
}

void tst_BookmarkFile::read_noRegularFile_isNotWaitedFor()
{
    const QString path = m_folder.filePath(QStringLiteral("fifo.bkm"));
    Fifo fifo(path);
    QVERIFY(!readBookmarkFile(path));
    QVERIFY(!fifo.wasWaitedFor());
    const QString device = m_folder.filePath(QStringLiteral("device.bkm"));
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), device));
    QVERIFY(!readBookmarkFile(device));
    const QString circle = m_folder.filePath(QStringLiteral("circle.bkm"));
    QVERIFY(QFile::link(circle, circle));
    QVERIFY(!readBookmarkFile(circle));
}

void tst_BookmarkFile::write_failing_saysWhy()
{
    BookmarkSet set;
    set[0] = {QStringLiteral("-> a"), 1};
    const QString gone = m_folder.filePath(QStringLiteral("gone/piece.bkm"));
    const auto written = writeBookmarkFile(gone, set);
    QVERIFY(!written);
    QCOMPARE(written.failure().kind, FileFailure::Kind::NotThere);
    const auto removed = writeBookmarkFile(gone, {}); // nothing to write, nothing to remove
    QVERIFY(removed && !*removed);
    QCOMPARE(removed.failure(), FileFailure());
}

void tst_BookmarkFile::read_whatWasWritten_givesItBack()
{
    BookmarkSet set;
    for (int i = 0; i < BookmarkSlots; i += 2)
        set[std::size_t(i)] = {QStringLiteral("-> line %1").arg(i), i + 1};
    QVERIFY(*writeBookmarkFile(path(), set));
    auto read = readBookmarkFile(path());
    QVERIFY(read);
    for (Bookmark &bookmark : *read)
        bookmark.text = bookmark.text.trimmed(); // the file keeps the blanks that fill it up
    QCOMPARE(*read, set);
}

void tst_BookmarkFile::read_noFile_givesNothing()
{
    QVERIFY(!readBookmarkFile(m_folder.filePath(QStringLiteral("none.bkm"))));
}

void tst_BookmarkFile::read_cutOrForeignFile_neverFails_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("line");
    const QString blank(20, u' ');
    QTest::newRow("empty") << QByteArray() << blank << -1;
    QTest::newRow("39 bytes") << QByteArray("12").leftJustified(20) +
                                     QByteArray("-> twelve").leftJustified(19)
                              << QStringLiteral("-> twelve").leftJustified(20) << 12;
    QTest::newRow("letters for a line")
        << QByteArray("abc").leftJustified(20) + QByteArray("-> x").leftJustified(580)
        << QStringLiteral("-> x").leftJustified(20) << -1;
    QTest::newRow("line 0") << QByteArray("0").leftJustified(20) +
                                   QByteArray("-> x").leftJustified(580)
                            << QStringLiteral("-> x").leftJustified(20) << -1;
    QTest::newRow("10,000 bytes") << QByteArray(10000, '\xff') << QString(20, QChar(0xff)) << -1;
}

void tst_BookmarkFile::read_cutOrForeignFile_neverFails()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QFETCH(int, line);
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    const auto read = readBookmarkFile(path());
    QVERIFY(read);
    QCOMPARE(read->front(), (Bookmark{text, line}));
}

ARDIPHON_TEST(tst_BookmarkFile, NoApplication)
#include "tst_BookmarkFile.moc"
