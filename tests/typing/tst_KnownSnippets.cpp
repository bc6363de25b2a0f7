#include "support/TestMain.h"
#include "typing/KnownSnippets.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

/// Snippets that follow their files, and the names of files that are offered.
class tst_KnownSnippets : public QObject
{
    Q_OBJECT

private slots:
    void file_changed_isReadAgain();
    void known_staysAsItWas();
    void fileNames_areThoseOfTheFolder();

private:
    void write(const QByteArray &text, const QDateTime &time) const
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.flush();
        QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
    }
    QString path() const { return m_folder.filePath(QStringLiteral("snippets.txt")); }

    QTemporaryDir m_folder;
};

void tst_KnownSnippets::file_changed_isReadAgain()
{
    KnownSnippets snippets;
    const QDateTime time = QDateTime::fromSecsSinceEpoch(1'700'000'000);
    QVERIFY(snippets.of({path()}).isEmpty());
    write("@snippet one orchestra One\na = 1\n", time);
    QCOMPARE(snippets.of({path()}).size(), 1);
    write("@snippet one orchestra One\na = 1\n@snippet two orchestra Two\na = 2\n",
          time.addSecs(1));
    QCOMPARE(snippets.of({path()}).size(), 2);
    QVERIFY(snippets.of({}).isEmpty());
}

/// A list that is open holds the places of its snippets.
void tst_KnownSnippets::known_staysAsItWas()
{
    KnownSnippets snippets;
    const QDateTime time = QDateTime::fromSecsSinceEpoch(1'700'000'000);
    write("@snippet one orchestra One\na = 1\n", time);
    snippets.of({path()});
    QFile::remove(path());
    QCOMPARE(snippets.known().size(), 1);
    QVERIFY(snippets.of({path()}).isEmpty());
}

void tst_KnownSnippets::fileNames_areThoseOfTheFolder()
{
    const QTemporaryDir folder;
    for (const char *name : {"b.wav", "a.wav"}) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QCOMPARE(fileNamesIn(folder.path()), QStringList({"a.wav", "b.wav"}));
    QVERIFY(fileNamesIn(QString()).isEmpty());
    QVERIFY(fileNamesIn(folder.filePath(QStringLiteral("nothing"))).isEmpty());
}

ARDIPHON_TEST(tst_KnownSnippets, NoApplication)
#include "tst_KnownSnippets.moc"
