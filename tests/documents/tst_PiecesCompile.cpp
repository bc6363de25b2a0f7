// What the real compiler says to the pieces that represent a composer's files.

#include "documents/Pieces.h"
#include "support/TestMain.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

class tst_PiecesCompile : public QObject
{
    Q_OBJECT

private slots:
    void compile_givesItsVerdict_data();
    void compile_givesItsVerdict();
};

void tst_PiecesCompile::compile_givesItsVerdict_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("verdict");
    for (const Pieces::Piece &piece : Pieces::all()) {
        if (piece.verdict == QLatin1String("-"))
            continue;
        QStringList files(piece.path);
        if (piece.kind() != ardiphon::DocumentRole::Csd)
            files.append(Pieces::partnerOf(piece));
        QTest::newRow(qPrintable(piece.name)) << files << piece.verdict;
    }
}

void tst_PiecesCompile::compile_givesItsVerdict()
{
    QFETCH(QStringList, files);
    QFETCH(QString, verdict);
    const QTemporaryDir folder; // for what a piece might write
    const QString csound = QStandardPaths::findExecutable(QStringLiteral("csound"));
    QVERIFY2(!csound.isEmpty(), "csound is not installed");

    QProcess compiler;
    compiler.setWorkingDirectory(folder.path());
    compiler.setProcessChannelMode(QProcess::MergedChannels);
    compiler.setStandardInputFile(QProcess::nullDevice());
    // No sound, no window, few words.
    compiler.start(csound, QStringList{"-n", "-d", "-m0"} + files);
    QVERIFY(compiler.waitForFinished(60'000));
    const QByteArray log = compiler.readAll();

    QCOMPARE(compiler.exitStatus(), QProcess::NormalExit);
    const bool clean = compiler.exitCode() == 0 && log.contains("\n0 errors in performance");
    QVERIFY2(clean == (verdict == QLatin1String("compiles")), log.constData());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
}

ARDIPHON_TEST(tst_PiecesCompile, QCoreApplication)
#include "tst_PiecesCompile.moc"
