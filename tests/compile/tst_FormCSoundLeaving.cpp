#include "compile/CSoundDialog.h"
#include "support/Require.h"
#include "support/TestMain.h"

using namespace ardiphon;
using namespace StandInCompiler;

/// The ways out of the dialog around the compiler, with and without a run.
class tst_FormCSoundLeaving : public QObject
{
    Q_OBJECT

private slots:
    void leaving_anyWay_closingSteps_data();
    void leaving_anyWay_closingSteps();
    void leaving_duringRun_endsTheCompiler_data();
    void leaving_duringRun_endsTheCompiler();
    void leaving_stubbornLog_isDeleted();
    void leaving_duringRun_startsNoOther();
};

void tst_FormCSoundLeaving::leaving_anyWay_closingSteps_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"Command1", "Escape", "close"})
        QTest::newRow(way) << way;
}

void tst_FormCSoundLeaving::leaving_anyWay_closingSteps()
{
    QFETCH(QString, way);
    CSoundDialog dialog;
    dialog.click("Compila");
    QVERIFY(QFile::exists(dialog.logFile()));
    dialog.click("btnClose");
    dialog.click("Command2");
    dialog.writeWave(QStringLiteral("logged.wav"));
    for (int i = 0; i < 2; ++i) // which opens the wave
        dialog.click("CheckRealTime");
    QCOMPARE(dialog.playerMode(), int(MMControl::Stopped));
    dialog.config.FileCSound = QStringLiteral("/chosen");
    if (way == QLatin1String("Command1"))
        dialog.click("Command1");
    else if (way == QLatin1String("Escape"))
        QTest::keyClick(dialog.form.get(), Qt::Key_Escape);
    else
        dialog.form->close();
    QVERIFY(!dialog.form->isVisible());
    QVERIFY(!QFile::exists(dialog.logFile()));
    QVERIFY(QFile::exists(dialog.path(QStringLiteral("own/CSFlags.dat"))));
    QCOMPARE(dialog.config.FileCSound, StandInCompiler::path());
    QCOMPARE(dialog.playerMode(), int(MMControl::NotOpen));
}

void tst_FormCSoundLeaving::leaving_duringRun_endsTheCompiler_data()
{
    QTest::addColumn<QString>("piece");
    for (const char *piece : {"slow", "ignores", "forks"})
        QTest::newRow(piece) << piece;
}

void tst_FormCSoundLeaving::leaving_duringRun_endsTheCompiler()
{
    QFETCH(QString, piece);
    CSoundDialog dialog(piece);
    dialog.click("Command2");
    bool flagsSaved = false;
    dialog.whenRunning([&] {
        dialog.form->close();
        flagsSaved = QFile::exists(dialog.path(QStringLiteral("own/CSFlags.dat")));
    });
    dialog.click("Compila");
    QVERIFY(flagsSaved);
    QVERIFY(!dialog.form->isVisible());
    QVERIFY(!isAlive(dialog.pids().leader));
    if (dialog.pids().child != 0)
        QTRY_VERIFY(!isAlive(dialog.pids().child));
    QVERIFY(!QFile::exists(dialog.logFile()));
    QCOMPARE(dialog.beeps, 0);
}

void tst_FormCSoundLeaving::leaving_stubbornLog_isDeleted()
{
    CSoundDialog dialog(QStringLiteral("stubborn"));
    dialog.whenRunning([&] {
        dialog.form->close();
        QTRY_VERIFY(QFile::exists(dialog.logFile())); // the compiler is still there and made it
    });
    CHECKED(dialog.click("Compila"));
    QVERIFY(!QFile::exists(dialog.logFile()));
}

void tst_FormCSoundLeaving::leaving_duringRun_startsNoOther()
{
    CSoundDialog dialog(QStringLiteral("slow"));
    const QString other = dialog.path(QStringLiteral("logged.orc"));
    dialog.whenRunning([&] {
        dialog.form->close();
        dialog.control<QLineEdit>("Orchestra")->setText(other);
        QTest::keyClick(dialog.control("Compila"), Qt::Key_Space);
        dialog.form->reject();
    });
    dialog.click("Compila");
    QCOMPARE(StandInCompiler::pids(other).leader, 0);
    QVERIFY(!isAlive(dialog.pids().leader));
}

ARDIPHON_TEST(tst_FormCSoundLeaving, QApplication)
#include "tst_FormCSoundLeaving.moc"
