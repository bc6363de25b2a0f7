// A program that is killed at any moment of a save leaves the old text or the new one, never a
// third thing; where the file has to be written in place, the text may be the one set aside. KILLS
// in the environment tells how often it is tried; 50 times without it.

#include "support/FileBytes.h"
#include "support/RandomSeed.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <sys/inotify.h>
#include <unistd.h>

namespace {

constexpr int BookmarkFileSize = 15 * 40;
constexpr int FilesOfASave = 2;   ///< at most: for the text and the bookmarks
constexpr int LongestSave = 4000; ///< in microseconds, with the way to the next one

QByteArray textOf(char letter) { return (QByteArray(79, letter) + '\n').repeated(2500); }

/// The letter of which a whole text consists; nothing for any other text.
std::optional<char> letterOf(const QByteArray &text)
{
    for (const char letter : {'o', 'a', 'b'})
        if (text == textOf(letter))
            return letter;
    return std::nullopt;
}

/// Sees when a save begins, by the new file that it makes beside the document.
class SaveWatch
{
public:
    explicit SaveWatch(const QString &folder)
    {
        ::inotify_add_watch(m_watch, QFile::encodeName(folder).constData(), IN_CREATE);
    }
    ~SaveWatch() { ::close(m_watch); }
    Q_DISABLE_COPY_MOVE(SaveWatch)

    void waitForFiles(qsizetype count) const
    {
        QByteArray events(4096, '\0');
        while (count > 0) {
            const ssize_t size = ::read(m_watch, events.data(), size_t(events.size()));
            if (size < 0)
                return;
            count -= events.first(size).count(".ardiphon-");
        }
    }

private:
    const int m_watch = ::inotify_init1(IN_CLOEXEC);
};

} // namespace

class tst_KilledSaves : public QObject
{
    Q_OBJECT

private slots:
    void kill_anyMoment_leavesAWholeText_data();
    void kill_anyMoment_leavesAWholeText();

private:
    static void saveAndKill(const QString &folder, int files, int microseconds);
    static QStringList leftBehind(const QString &folder);
};

void tst_KilledSaves::kill_anyMoment_leavesAWholeText_data()
{
    QTest::addColumn<bool>("inPlace");
    QTest::addColumn<int>("share"); // of all kills, in percent
    QTest::newRow("replaced by a new file") << false << 60;
    QTest::newRow("written in place, as it has two names") << true << 40;
}

/// Kills so long after the saves have made so many new files. Nothing is left of the process when
/// this returns.
void tst_KilledSaves::saveAndKill(const QString &folder, int files, int microseconds)
{
    const SaveWatch watch(folder);
    QProcess saver;
    saver.start(QCoreApplication::applicationDirPath() + QStringLiteral("/endless_saver"),
                {folder});
    QVERIFY(saver.waitForStarted());
    while (!saver.canReadLine())
        QVERIFY2(saver.waitForReadyRead(60'000), saver.readAllStandardError().constData());
    watch.waitForFiles(files);
    ::usleep(static_cast<unsigned>(microseconds));
    QCOMPARE(saver.state(), QProcess::Running);
    saver.kill();
    QVERIFY(saver.waitForFinished());
}

QStringList tst_KilledSaves::leftBehind(const QString &folder)
{
    return QDir(folder).entryList({QStringLiteral(".ardiphon-*")}, QDir::Files | QDir::Hidden);
}

void tst_KilledSaves::kill_anyMoment_leavesAWholeText()
{
    QFETCH(bool, inPlace);
    QFETCH(int, share);
    const int asked = qEnvironmentVariableIntValue("KILLS");
    const int kills = (asked > 0 ? asked : 50) * share / 100;
    QRandomGenerator random(randomSeed(QRandomGenerator::global()->generate()));
    const QTemporaryDir folder;
    const QString piece = folder.filePath(QStringLiteral("piece.csd"));
    writeBytes(piece, textOf('o'));
    if (inPlace)
        QCOMPARE(::link(QFile::encodeName(piece).constData(),
                        QFile::encodeName(folder.filePath(QStringLiteral("second"))).constData()),
                 0);

    QMap<char, int> found;
    int inTheMiddle = 0;
    for (int i = 0; i < kills; ++i) {
        // Some end only when a first save is over, however slow the machine is.
        const int files = i % 5 == 0 ? FilesOfASave + 1 : 1;
        CHECKED(saveAndKill(folder.path(), files, random.bounded(LongestSave)));
        const QStringList left = leftBehind(folder.path());
        // A save has one file beside the document, and so has one of the bookmarks.
        QVERIFY2(left.size() <= 2, qPrintable(left.join(u' ')));
        auto letter = letterOf(bytesOf(piece));
        for (const QString &name : left) {
            const QByteArray aside = bytesOf(folder.filePath(name));
            if (inPlace && !letter && (letter = letterOf(aside)))
                writeBytes(piece, aside); // as a user would
            QVERIFY(QFile::remove(folder.filePath(name)));
        }
        QVERIFY2(letter, qPrintable(QStringLiteral("kill %1").arg(i)));
        ++found[*letter];
        inTheMiddle += left.isEmpty() ? 0 : 1;
        const QString bookmarks = folder.filePath(QStringLiteral("piece.bkm"));
        QVERIFY(!QFile::exists(bookmarks) || bytesOf(bookmarks).size() == BookmarkFileSize);
    }
    qInfo("%d kills, %d of them in the middle of a save; texts found: old %d, first %d, second %d",
          kills, inTheMiddle, found['o'], found['a'], found['b']);
    const QStringList all = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden);
    for (const QString &name : all)
        QVERIFY2(name == "piece.csd" || name == "piece.bkm" || name == "second", qPrintable(name));
    QVERIFY(found['a'] + found['b'] > 0);
}

ARDIPHON_TEST(tst_KilledSaves, QCoreApplication)
#include "tst_KilledSaves.moc"
