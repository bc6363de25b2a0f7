#include "compile/ProjectDialog.h"
#include "compile/ui/FormWinsound.h"
#include "support/TestMain.h"
#include "support/WaveBytes.h"

#include <QGroupBox>
#include <QLabel>

#include <csignal>

using namespace ardiphon;
using namespace StandInCompiler;

/// In what this dialog differs from the console compiler's; what they share is tested there.
class tst_FormWinsound : public QObject
{
    Q_OBJECT

private slots:
    void opening_showsTheProject();
    void browse_file_countsUntilClosing();
    void compile_ownLogFlag_reachesTheCompiler();
    void compile_ownWaveFlag_isRefused();
    void compile_waveExists_asksUnderTheConsolesTitle();
    void compile_end_isSilentAndOpensTheWave();
    void compile_duringRun_buttonsStayLive();
    void compile_cannotStart_saysSo();
    void leaving_duringRun_endsTheCompiler_data();
    void leaving_duringRun_endsTheCompiler();
    void leaving_duringNestedRuns_endsBoth();
};

void tst_FormWinsound::opening_showsTheProject()
{
    ProjectDialog dialog(QStringLiteral("my piece"));
    dialog.open<FormWinsound>();
    QCOMPARE(dialog.form->objectName(), QStringLiteral("FormWinsound"));
    QCOMPARE(dialog.form->windowTitle(), QStringLiteral("Winsound Compiler"));
    QStringList labels;
    for (const QLabel *label : dialog.form->findChildren<QLabel *>())
        labels.append(label->text());
    QVERIFY(labels.contains(QStringLiteral("Winsound:")));
    QCOMPARE(dialog.field("Wave"), dialog.path("my piece.wav"));
    QCOMPARE(dialog.control("Compila")->text(), QStringLiteral("&Compile"));
    for (const char *absent :
         {"FrameCompiler", "TxtOutputs", "btnStop", "btnClose", "btnGoToError"})
        QVERIFY(!dialog.form->findChild<QWidget *>(QLatin1String(absent)));
}

void tst_FormWinsound::browse_file_countsUntilClosing()
{
    ProjectDialog dialog;
    dialog.open<FormWinsound>();
    dialog.dialogs.expectOpen(QStringLiteral("Winsound Directory"), QStringLiteral("/other/w"));
    dialog.click("CercaCsound");
    QCOMPARE(dialog.config.FileWinsound, QStringLiteral("/other/w"));
    QCOMPARE(dialog.dialogs.fileQuestions.last().filter, QStringLiteral("Winsound.exe |*.exe"));
    QTest::keyClick(dialog.form.get(), Qt::Key_Escape);
    QVERIFY(!dialog.form->isVisible());
    QCOMPARE(dialog.config.FileWinsound, StandInCompiler::path());
}

void tst_FormWinsound::compile_ownLogFlag_reachesTheCompiler()
{
    ProjectDialog dialog(QStringLiteral("my piece"));
    dialog.open<FormWinsound>();
    const QString log = dialog.path(QStringLiteral("log"));
    dialog.setFlags(QStringLiteral("-W \"-O%1\"").arg(log));
    dialog.click("Compila");
    const QString told = QString::fromUtf8(dialog.read(QStringLiteral("log")));
    QCOMPARE(dialog.argumentsIn(told),
             QStringList({"-W", "-O" + log, "-o", dialog.path("my piece.wav"),
                          dialog.config.OrchestraFileName, dialog.config.ScoreFileName}));
    // What it prints is seen where ours is.
    const QString output = QFile::symLinkTarget(QStringLiteral("/proc/self/fd/1"));
    QVERIFY(told.contains(QStringLiteral("output ") + output.section(u'/', -1)) ||
            told.contains(QStringLiteral("output ") + output));
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormWinsound::compile_ownWaveFlag_isRefused()
{
    ProjectDialog dialog;
    dialog.open<FormWinsound>();
    dialog.setFlags(QStringLiteral("-odac"));
    dialog.expectWarning(QStringLiteral("Don't use '-o' flag in Ardiphon!"),
                         QStringLiteral("Error"));
    dialog.click("Compila");
    QCOMPARE(dialog.pids().leader, 0);
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormWinsound::compile_waveExists_asksUnderTheConsolesTitle()
{
    ProjectDialog dialog;
    dialog.write(QStringLiteral("logged.wav"), "old");
    dialog.open<FormWinsound>();
    dialog.expectOverwriteQuestion(Answer::Cancel);
    dialog.click("Compila");
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormWinsound::compile_end_isSilentAndOpensTheWave()
{
    ProjectDialog dialog(QStringLiteral("slow"));
    dialog.open<FormWinsound>();
    const auto caption = [&] { return dialog.control<QGroupBox>("Frame1")->title(); };
    QCOMPARE(caption(), QStringLiteral("Wave Player"));
    dialog.whenRunning([&] {
        dialog.write(QStringLiteral("slow.wav"),
                     WaveBytes::wave(1, 44100, QByteArray(88'200, '\0')));
        ::kill(dialog.pids().leader, SIGKILL);
    });
    dialog.click("Compila");
    QCOMPARE(caption(), QStringLiteral("Wave Player - Ready"));
    QCOMPARE(dialog.control<QLabel>("Lbl_Durata")->text(),
             QStringLiteral("Total Time: \r\n00:01 (mm:ss)"));
    QCOMPARE(dialog.beeps, 0);
}

void tst_FormWinsound::compile_duringRun_buttonsStayLive()
{
    ProjectDialog dialog(QStringLiteral("slow"));
    dialog.open<FormWinsound>();
    QSize before = dialog.form->size();
    int enabled = 0;
    dialog.whenRunning([&] {
        for (const char *name : {"Compila", "CercaCsound", "Command1", "Command2", "Command3"})
            enabled += dialog.control(name)->isEnabled() ? 1 : 0;
        dialog.click("Command2");
        ::kill(dialog.pids().leader, SIGKILL);
    });
    dialog.click("Compila");
    QCOMPARE(enabled, 5);
    QCOMPARE(dialog.control<QComboBox>("Flags")->count(), 1);
    QCOMPARE(dialog.form->size(), before);
}

void tst_FormWinsound::compile_cannotStart_saysSo()
{
    ProjectDialog dialog;
    dialog.config.FileWinsound = QStringLiteral("/nowhere/w");
    dialog.open<FormWinsound>();
    dialog.dialogs.expect({QStringLiteral("File was not found."), ProgramTitle, MessageIcon::None});
    dialog.click("Compila");
    QCOMPARE(dialog.dialogs.verify(), QString());
    QVERIFY(dialog.form->isVisible());
}

void tst_FormWinsound::leaving_duringRun_endsTheCompiler_data()
{
    QTest::addColumn<QString>("piece");
    for (const char *piece : {"slow", "ignores", "forks"})
        QTest::newRow(piece) << piece;
}

void tst_FormWinsound::leaving_duringRun_endsTheCompiler()
{
    QFETCH(QString, piece);
    ProjectDialog dialog(piece);
    dialog.open<FormWinsound>();
    dialog.whenRunning([&] { dialog.click("Command1"); });
    dialog.click("Compila");
    QVERIFY(!dialog.form->isVisible());
    QVERIFY(!isAlive(dialog.pids().leader));
    if (dialog.pids().child != 0)
        QTRY_VERIFY(!isAlive(dialog.pids().child));
}

void tst_FormWinsound::leaving_duringNestedRuns_endsBoth()
{
    ProjectDialog dialog(QStringLiteral("slow"));
    dialog.open<FormWinsound>();
    pid_t outer = 0;
    dialog.whenRunning([&] {
        outer = dialog.pids().leader;
        dialog.when([&] { return dialog.pids().leader != outer; }, [&] { dialog.form->close(); });
        dialog.click("Compila");
    });
    dialog.click("Compila");
    QVERIFY(outer != 0);
    QVERIFY(!isAlive(outer));
    QVERIFY(!isAlive(dialog.pids().leader));
}

ARDIPHON_TEST(tst_FormWinsound, QApplication)
#include "tst_FormWinsound.moc"
