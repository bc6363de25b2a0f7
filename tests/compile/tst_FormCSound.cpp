#include "compile/CSoundDialog.h"
#include "compile/FinishedText.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QCheckBox>

#include <csignal>
#include <unistd.h>

using namespace ardiphon;
using namespace StandInCompiler;

/// The dialog around the compiler; what it makes of the log and the ways
/// out of it are tested in tst_FormCSoundLog and tst_FormCSoundLeaving.
class tst_FormCSound : public QObject
{
    Q_OBJECT

private slots:
    void opening_showsTheProject();
    void opening_orchestraOfOddName_itsWave();
    void browse_file_countsUntilClosing();
    void opening_waveIsThere_offersIt();
    void realTime_switchesTheWave();
    void realTime_off_offersTheWaveAgain();
    void compile_ownFlags_areRefusedFirst();
    void compile_noWave_nothing();
    void compile_waveExists_cancelKeepsAll();
    void compile_waveExists_okDeletesIt();
    void compile_waveExists_okClearsItsAttributes();
    void compile_folderOfThatName_isNoWave();
    void compile_duringRun_playerHasLetGo_data();
    void compile_duringRun_playerHasLetGo();
    void compile_passesTheFields();
    void compile_realTime_asksNothing();
    void compile_relativeWave_isFoundWhereItIsWritten();
    void compile_opensThePanel();
    void compile_end_showsLogAndWave();
    void compile_end_takesTheFocusToTheLog();
    void compile_cannotStart_saysSoAndKeepsThePanel();
    void compile_again_hidesTheButton();
    void stop_closesThePanel();
    void close_afterRun_leadsBackToTheForm();
    void panel_movedBetween_movesBackFromThere();
    void keys_enter_pressesTheFocusedButton();
    void keys_tab_followsTheRows();
    void playing_disablesTheButtons();
};

void tst_FormCSound::opening_showsTheProject()
{
    CSoundDialog dialog(QStringLiteral("my piece"));
    QCOMPARE(dialog.form->objectName(), QStringLiteral("FormCSound"));
    QCOMPARE(dialog.form->windowTitle(), QStringLiteral("CSound Console Compiler"));
    QCOMPARE(dialog.field("dir_Csound"), StandInCompiler::path());
    QCOMPARE(dialog.field("Orchestra"), dialog.path("my piece.orc"));
    QCOMPARE(dialog.field("Score"), dialog.path("my piece.sco"));
    QCOMPARE(dialog.field("Wave"), dialog.path("my piece.wav"));
    QVERIFY(!dialog.control<QCheckBox>("CheckRealTime")->isChecked());
    QVERIFY(!dialog.isPanelOpen());
    const std::pair<const char *, const char *> captions[] = {
        {"CercaCsound", "&Browse"},
        {"CheckRealTime", "Realtime"},
        {"Command2", "&Add Flags"},
        {"Command3", "&Remove Flags"},
        {"CommandFlags", "&Flags"},
        {"Compila", "&Compile"},
        {"EditorFileWave", "&Wave Editor"},
        {"Command1", "E&xit"},
        {"btnStop", "&Stop Compiler"},
        {"btnClose", "&Close"},
        {"btnGoToError", "Go to Line error -->>"},
    };
    for (const auto &[name, caption] : captions)
        QCOMPARE(dialog.control<QAbstractButton>(name)->text(), QLatin1String(caption));
    QCOMPARE(dialog.control<QGroupBox>("Frame1")->title(), QStringLiteral("Wave Player"));
}

void tst_FormCSound::opening_orchestraOfOddName_itsWave()
{
    CSoundDialog dialog;
    dialog.config.OrchestraFileName = QStringLiteral("/a.o");
    dialog.show();
    QCOMPARE(dialog.field("Wave"), QStringLiteral(".wav"));
    dialog.config.OrchestraFileName.clear();
    dialog.show();
    QCOMPARE(dialog.field("Wave"), QString());
}

void tst_FormCSound::browse_file_countsUntilClosing()
{
    CSoundDialog dialog;
    dialog.dialogs.expectOpen(QStringLiteral("CSound Directory"), std::nullopt);
    dialog.click("CercaCsound");
    QCOMPARE(dialog.config.FileCSound, StandInCompiler::path());
    dialog.dialogs.expectOpen(QStringLiteral("CSound Directory"), QStringLiteral("/other/csound"));
    dialog.click("CercaCsound");
    QCOMPARE(dialog.config.FileCSound, QStringLiteral("/other/csound"));
    QCOMPARE(dialog.field("dir_Csound"), QStringLiteral("/other/csound"));
    QCOMPARE(dialog.dialogs.fileQuestions.last().filter, QStringLiteral("Csound.exe |*.exe"));
    dialog.click("Command1");
    QCOMPARE(dialog.config.FileCSound, StandInCompiler::path());
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSound::opening_waveIsThere_offersIt()
{
    CSoundDialog dialog;
    QCOMPARE(dialog.playerCaption(), QStringLiteral("Wave Player"));
    dialog.writeWave(QStringLiteral("logged.wav"));
    dialog.show();
    QCOMPARE(dialog.playerCaption(), QStringLiteral("Wave Player - Ready"));
    QCOMPARE(dialog.playerMode(), int(MMControl::Stopped));
}

void tst_FormCSound::realTime_switchesTheWave()
{
    CSoundDialog dialog;
    dialog.control<QLineEdit>("Wave")->setText(QStringLiteral(" /b.wav "));
    dialog.click("CheckRealTime");
    QCOMPARE(dialog.field("Wave"), QStringLiteral("devaudio"));
    dialog.click("CheckRealTime");
    QCOMPARE(dialog.field("Wave"), QStringLiteral("/b.wav"));
}

void tst_FormCSound::realTime_off_offersTheWaveAgain()
{
    CSoundDialog dialog;
    dialog.click("CheckRealTime");
    dialog.writeWave(QStringLiteral("logged.wav"));
    QCOMPARE(dialog.playerCaption(), QStringLiteral("Wave Player"));
    dialog.click("CheckRealTime");
    QCOMPARE(dialog.playerCaption(), QStringLiteral("Wave Player - Ready"));
}

void tst_FormCSound::compile_ownFlags_areRefusedFirst()
{
    CSoundDialog dialog;
    dialog.control<QLineEdit>("Wave")->clear();
    const QString error = QStringLiteral("Error");
    for (const char *flags : {"-W -Olog -o x", "-O", "-WO"}) {
        dialog.setFlags(QLatin1String(flags));
        dialog.expectWarning(QStringLiteral("Don't use '-O' flag in Ardiphon!"), error);
        dialog.click("Compila");
    }
    for (const char *flags : {"-odac", "--no-output", "-Wo"}) {
        dialog.setFlags(QLatin1String(flags));
        dialog.expectWarning(QStringLiteral("Don't use '-o' flag in Ardiphon!"), error);
        dialog.click("Compila");
    }
    QCOMPARE(dialog.dialogs.verify(), QString());
    QVERIFY(!dialog.isPanelOpen());
}

void tst_FormCSound::compile_noWave_nothing()
{
    CSoundDialog dialog;
    dialog.control<QLineEdit>("Wave")->clear();
    dialog.click("Compila");
    QVERIFY(!dialog.isPanelOpen());
    QCOMPARE(dialog.pids().leader, 0);
}

void tst_FormCSound::compile_waveExists_cancelKeepsAll()
{
    CSoundDialog dialog;
    dialog.writeWave(QStringLiteral("logged.wav"));
    const QByteArray wave = dialog.read(QStringLiteral("logged.wav"));
    dialog.show();
    dialog.expectOverwriteQuestion(Answer::Cancel);
    dialog.click("Compila");
    QCOMPARE(dialog.read(QStringLiteral("logged.wav")), wave);
    QCOMPARE(dialog.playerMode(), int(MMControl::Stopped)); // still open on it
    QVERIFY(!dialog.isPanelOpen());
    QCOMPARE(dialog.pids().leader, 0);
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSound::compile_waveExists_okDeletesIt()
{
    CSoundDialog dialog;
    QFile wave(dialog.write(QStringLiteral("logged.wav"), "old"));
    wave.setPermissions(QFile::ReadOwner);
    dialog.control<QLineEdit>("Wave")->setText(wave.fileName() + QStringLiteral("  "));
    dialog.expectOverwriteQuestion(Answer::Ok);
    dialog.click("Compila");
    QVERIFY(!wave.exists());
    QCOMPARE(dialog.text(), finishedText(QStringLiteral("this is the log\r\n")));
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSound::compile_waveExists_okClearsItsAttributes()
{
    CSoundDialog dialog;
    QFile wave(dialog.write(QStringLiteral("logged.wav"), "old"));
    const QString other = dialog.path(QStringLiteral("other.wav"));
    QCOMPARE(::link(QFile::encodeName(wave.fileName()).constData(),
                    QFile::encodeName(other).constData()),
             0);
    wave.setPermissions(QFile::ReadOwner);
    dialog.expectOverwriteQuestion(Answer::Ok);
    dialog.click("Compila");
    QVERIFY(!wave.exists());
    QVERIFY(QFile::permissions(other).testFlag(QFile::WriteOwner));
}

void tst_FormCSound::compile_folderOfThatName_isNoWave()
{
    CSoundDialog dialog;
    QVERIFY(QDir(dialog.folder.path()).mkdir(QStringLiteral("logged.wav")));
    dialog.click("Compila");
    QVERIFY(QFileInfo(dialog.path(QStringLiteral("logged.wav"))).isDir());
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSound::compile_duringRun_playerHasLetGo_data()
{
    QTest::addColumn<QString>("wave");
    QTest::newRow("overwritten") << "slow.wav";
    QTest::newRow("another") << "new.wav";
}

void tst_FormCSound::compile_duringRun_playerHasLetGo()
{
    QFETCH(QString, wave);
    CSoundDialog dialog(QStringLiteral("slow"));
    dialog.writeWave(QStringLiteral("slow.wav"));
    dialog.show();
    QCOMPARE(dialog.playerMode(), int(MMControl::Stopped));
    dialog.control<QLineEdit>("Wave")->setText(dialog.path(wave));
    if (wave == QLatin1String("slow.wav"))
        dialog.expectOverwriteQuestion(Answer::Ok);
    int mode = 0;
    dialog.whenRunning([&] {
        mode = dialog.playerMode();
        dialog.click("btnStop");
    });
    dialog.click("Compila");
    QCOMPARE(mode, int(MMControl::NotOpen));
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSound::compile_passesTheFields()
{
    CSoundDialog dialog(QStringLiteral("my \"own\"; $HOME *"));
    dialog.setFlags(QStringLiteral("-W -d "));
    dialog.control<QLineEdit>("Score")->setText(QStringLiteral("/other.sco"));
    dialog.click("Compila");
    QCOMPARE(dialog.argumentsIn(dialog.text()),
             QStringList({"-W", "-d", "-o", dialog.path("my \"own\"; $HOME *.wav"),
                          dialog.config.OrchestraFileName, "/other.sco", "-O" + dialog.logFile()}));
    QVERIFY(dialog.text().contains("directory " + QCoreApplication::applicationDirPath()));
    QVERIFY(dialog.text().contains("SFDIR=" + dialog.folder.path() + "\r\n"));
    QVERIFY(dialog.text().contains("output /dev/null")); // its console is not seen
}

void tst_FormCSound::compile_realTime_asksNothing()
{
    CSoundDialog dialog(QStringLiteral("my piece"));
    dialog.write(QStringLiteral("my piece.wav"), "old");
    dialog.click("CheckRealTime");
    dialog.click("Compila");
    QCOMPARE(dialog.argumentsIn(dialog.text()).mid(1, 2), QStringList({"-o", "devaudio"}));
    QCOMPARE(dialog.dialogs.verify(), QString());
    QCOMPARE(dialog.read(QStringLiteral("my piece.wav")), QByteArray("old"));
}

void tst_FormCSound::compile_relativeWave_isFoundWhereItIsWritten()
{
    CSoundDialog dialog;
    dialog.write(QStringLiteral("take 2.wav"), "old");
    dialog.control<QLineEdit>("Wave")->setText(QStringLiteral("take 2.wav"));
    dialog.expectOverwriteQuestion(Answer::Cancel);
    dialog.click("Compila");
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSound::compile_opensThePanel()
{
    CSoundDialog dialog(QStringLiteral("slow"));
    dialog.form->move(100, 300);
    const QSize compact = dialog.form->size();
    QSize size;
    QPoint place;
    bool stopEnabled = false;
    QString shown;
    const auto running = [&] { return dialog.text().startsWith(QLatin1String("Compiling ")); };
    dialog.when(running, [&] {
        size = dialog.form->size();
        place = dialog.form->pos();
        stopEnabled = dialog.control("btnStop")->isEnabled();
        shown = dialog.text();
        QVERIFY(dialog.isPanelOpen());
        QVERIFY(!dialog.control("Compila")->isVisible());
        QVERIFY(!dialog.goToError()->isVisible());
        dialog.click("btnStop");
    });
    CHECKED(dialog.click("Compila"));
    QCOMPARE(size, compact + QSize(0, (8400 - 3960) / 15));
    QCOMPARE(place, QPoint(100, 300 - 2200 / 15));
    QVERIFY(stopEnabled);
    QCOMPARE(shown, QStringLiteral("Compiling ."));
}

void tst_FormCSound::compile_end_showsLogAndWave()
{
    CSoundDialog dialog;
    QVERIFY(!dialog.control("btnStop")->isEnabled());
    dialog.click("Compila");
    QCOMPARE(dialog.text(), finishedText(QStringLiteral("this is the log\r\n")));
    QVERIFY(dialog.isPanelOpen());
    QVERIFY(!dialog.control("btnStop")->isEnabled());
    QVERIFY(!dialog.goToError()->isVisible());
    QVERIFY(dialog.output->hasFocus());
    QCOMPARE(dialog.beeps, 1);
}

void tst_FormCSound::compile_end_takesTheFocusToTheLog()
{
    CSoundDialog dialog(QStringLiteral("slow"));
    dialog.whenRunning([&] {
        dialog.control("btnClose")->setFocus();
        ::kill(dialog.pids().leader, SIGKILL);
    });
    dialog.click("Compila");
    QVERIFY(dialog.isPanelOpen());
    QVERIFY(dialog.output->hasFocus());
}

void tst_FormCSound::compile_cannotStart_saysSoAndKeepsThePanel()
{
    CSoundDialog dialog;
    dialog.config.FileCSound = QStringLiteral("/nowhere/csound");
    dialog.dialogs.expect({QStringLiteral("File was not found."), ProgramTitle, MessageIcon::None});
    dialog.click("Compila");
    QVERIFY(dialog.isPanelOpen());
    QVERIFY(dialog.control("btnStop")->isEnabled());
    QCOMPARE(dialog.text(), QString());
    QCOMPARE(dialog.beeps, 0);
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSound::compile_again_hidesTheButton()
{
    CSoundDialog dialog(QStringLiteral("errors"));
    dialog.click("Compila");
    QVERIFY(dialog.goToError()->isVisible());
    dialog.click("btnClose");
    dialog.control<QLineEdit>("Orchestra")->setText(dialog.path(QStringLiteral("logged.orc")));
    dialog.click("Compila");
    QVERIFY(dialog.isPanelOpen());
    QVERIFY(!dialog.goToError()->isVisible());
}

void tst_FormCSound::stop_closesThePanel()
{
    CSoundDialog dialog(QStringLiteral("ignores"));
    const QSize compact = dialog.form->size();
    dialog.form->move(100, 300);
    dialog.whenRunning([&] {
        dialog.click("btnStop");
        QVERIFY(!dialog.isPanelOpen());
    });
    CHECKED(dialog.click("Compila"));
    QCOMPARE(dialog.text(), QStringLiteral("Stopped by user!!!"));
    QVERIFY(!isAlive(dialog.pids().leader));
    QVERIFY(!dialog.isPanelOpen());
    QCOMPARE(dialog.form->size(), compact);
    QCOMPARE(dialog.form->pos(), QPoint(100, 300));
    QVERIFY(dialog.form->isVisible());
    QCOMPARE(dialog.beeps, 0);
}

void tst_FormCSound::close_afterRun_leadsBackToTheForm()
{
    CSoundDialog dialog;
    dialog.click("Compila");
    dialog.click("btnClose");
    QVERIFY(!dialog.isPanelOpen());
    QVERIFY(dialog.control("Compila")->isVisible());
    QCOMPARE(dialog.text(), finishedText(QStringLiteral("this is the log\r\n")));
    dialog.click("Compila"); // the request to stop is forgotten
    QVERIFY(dialog.isPanelOpen());
    QCOMPARE(dialog.beeps, 2);
}

void tst_FormCSound::panel_movedBetween_movesBackFromThere()
{
    CSoundDialog dialog;
    dialog.form->move(100, 300);
    dialog.click("Compila");
    dialog.form->move(50, 60);
    dialog.click("btnClose");
    QCOMPARE(dialog.form->pos(), QPoint(50, 60 + 2200 / 15));
    // At the screen's upper edge there is less room to rise.
    dialog.form->move(0, 20);
    dialog.click("Compila");
    QCOMPARE(dialog.form->pos(), QPoint(0, 0));
    dialog.click("btnClose");
    QCOMPARE(dialog.form->pos(), QPoint(0, 20));
}

void tst_FormCSound::keys_enter_pressesTheFocusedButton()
{
    CSoundDialog dialog;
    QVERIFY(dialog.control("Compila")->hasFocus());
    for (const char *name : {"Score", "Wave"}) {
        auto *field = dialog.control<QLineEdit>(name);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_Return);
        QVERIFY(!dialog.isPanelOpen());
    }
    dialog.control("Compila")->setFocus();
    QTest::keyClick(dialog.form.get(), Qt::Key_Return);
    QVERIFY(dialog.isPanelOpen());
    QTest::keyClick(dialog.output, Qt::Key_Return);
    QVERIFY(dialog.isPanelOpen());
    QTest::keyClick(dialog.form.get(), Qt::Key_C, Qt::AltModifier);
    QTRY_VERIFY(!dialog.isPanelOpen());
}

void tst_FormCSound::keys_tab_followsTheRows()
{
    CSoundDialog dialog;
    dialog.control<QLineEdit>("dir_Csound")->setFocus();
    QStringList names;
    for (int i = 0; i < 10; ++i) {
        names.append(dialog.form->focusWidget()->objectName());
        QTest::keyClick(dialog.form->focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(names,
             QStringList({"dir_Csound", "CercaCsound", "Orchestra", "Score", "Wave",
                          "CheckRealTime", "Flags", "Command2", "Command3", "CommandFlags"}));
    dialog.control("EditorFileWave")->setFocus();
    QTest::keyClick(dialog.form.get(), Qt::Key_Tab);
    QVERIFY(dialog.control("Compila")->hasFocus());
    QTest::keyClick(dialog.form.get(), Qt::Key_Tab);
    QVERIFY(dialog.control("Command1")->hasFocus());
}

void tst_FormCSound::playing_disablesTheButtons()
{
    CSoundDialog dialog;
    auto *media = dialog.control<MMControl>("MMControl1");
    const auto enabled = [&dialog] {
        QStringList names;
        for (const char *name : {"Compila", "CercaCsound", "EditorFileWave", "Command2", "Command3",
                                 "CommandFlags", "Command1"})
            if (dialog.control<QAbstractButton>(name)->isEnabled())
                names.append(QLatin1String(name));
        return names.size();
    };
    emit media->PlayClick();
    QCOMPARE(enabled(), 1);
    emit media->StopClick();
    QCOMPARE(enabled(), 7);
}

ARDIPHON_TEST(tst_FormCSound, QApplication)
#include "tst_FormCSound.moc"
