#include "audio/ui/MySlider.h"
#include "audio/ui/WaveOutline.h"
#include "compile/CSoundDialog.h"
#include "compile/ui/FormWinsound.h"
#include "support/SoundServer.h"
#include "support/TestMain.h"
#include "support/TimedSound.h"

#include <QCheckBox>
#include <QLabel>
#include <QToolButton>

#include <csignal>

using namespace ardiphon;
using namespace StandInCompiler;

namespace {

const QString playerIsReady = QStringLiteral("Wave Player - Ready");
const QString playerPlays = QStringLiteral("Wave Player - Playing");

/// The names among these of the buttons that are enabled.
QStringList enabledButtons(const ProjectDialog &dialog)
{
    QStringList names;
    for (const char *name :
         {"Compila", "CercaCsound", "EditorFileWave", "Command2", "Command3", "CommandFlags"})
        if (dialog.control<QAbstractButton>(name)->isEnabled())
            names.append(QLatin1String(name));
    return names;
}

QString caption(const ProjectDialog &dialog)
{
    return dialog.control<QGroupBox>("Frame1")->title();
}
QString time(const ProjectDialog &dialog) { return dialog.control<QLabel>("TextTime")->text(); }
QString length(const ProjectDialog &dialog) { return dialog.control<QLabel>("Lbl_Durata")->text(); }
MMControl *media(const ProjectDialog &dialog) { return dialog.control<MMControl>("MMControl1"); }
MySlider *slider(const ProjectDialog &dialog) { return dialog.control<MySlider>("MySlider1"); }

/// Presses the track of the seek bar in its middle.
void seekToTheMiddle(const ProjectDialog &dialog)
{
    MySlider *bar = slider(dialog);
    QTest::mouseClick(bar, Qt::LeftButton, {}, QPoint(bar->width() / 2, bar->height() / 2));
}

/// Has the dialog compile: the compiler writes \a wave over the one that is there, and ends.
void compileInto(ProjectDialog &dialog, const QByteArray &wave)
{
    dialog.expectOverwriteQuestion(Answer::Ok);
    dialog.whenRunning([&dialog, wave] {
        dialog.write(QStringLiteral("slow.wav"), wave);
        ::kill(dialog.pids().leader, SIGKILL);
    });
    dialog.click("Compila");
}

} // namespace

/// The player of the compile dialogs while the wave in them changes.
class tst_CompiledWave : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCOMPARE(m_server.start(), QString()); }
    void cleanup() { QVERIFY(m_server.waitForSilence()); }

    void realTime_onAndOffWhilePlaying_givesTheButtonsBack();
    void realTime_onWhilePlaying_soundGoesOn();
    void compile_newWave_isShownFromItsStart_data();
    void compile_newWave_isShownFromItsStart();
    void compile_waveThatIsNoSound_saysSo();

private:
    SoundServer m_server;
};

void tst_CompiledWave::realTime_onAndOffWhilePlaying_givesTheButtonsBack()
{
    CSoundDialog dialog;
    dialog.write(QStringLiteral("logged.wav"), TimedSound::wave(10'000));
    dialog.show();
    const QStringList before = enabledButtons(dialog);
    QCOMPARE(before.size(), 6);
    dialog.click("Play");
    QTRY_VERIFY(slider(dialog)->Value() > 200);
    QCOMPARE(enabledButtons(dialog), QStringList());
    dialog.click("CheckRealTime");
    dialog.click("CheckRealTime");
    QCOMPARE(caption(dialog), playerIsReady);
    QCOMPARE(media(dialog)->Mode(), int(MMControl::Stopped));
    QCOMPARE(enabledButtons(dialog), before);
    QCOMPARE(time(dialog), QStringLiteral("00:00"));
    QCOMPARE(slider(dialog)->Value(), 0);
}

void tst_CompiledWave::realTime_onWhilePlaying_soundGoesOn()
{
    CSoundDialog dialog;
    dialog.write(QStringLiteral("logged.wav"), TimedSound::wave(10'000));
    dialog.show();
    dialog.click("Play");
    dialog.click("CheckRealTime");
    QCOMPARE(caption(dialog), playerPlays);
    QCOMPARE(media(dialog)->Mode(), int(MMControl::Playing));
    QCOMPARE(enabledButtons(dialog), QStringList());
    dialog.click("Stop");
    QCOMPARE(enabledButtons(dialog).size(), 6);
}

void tst_CompiledWave::compile_newWave_isShownFromItsStart_data()
{
    QTest::addColumn<bool>("inWinsound");
    QTest::newRow("console") << false;
    QTest::newRow("Winsound") << true;
}

void tst_CompiledWave::compile_newWave_isShownFromItsStart()
{
    QFETCH(bool, inWinsound);
    CSoundDialog dialog(QStringLiteral("slow"));
    dialog.write(QStringLiteral("slow.wav"), TimedSound::wave(10'000));
    if (inWinsound)
        dialog.open<FormWinsound>();
    else
        dialog.show();
    seekToTheMiddle(dialog);
    QCOMPARE(time(dialog), QStringLiteral("00:05"));
    compileInto(dialog, TimedSound::wave(8000));
    QCOMPARE(length(dialog), QStringLiteral("Total Time: \r\n00:08 (mm:ss)"));
    QCOMPARE(slider(dialog)->Max(), 8000);
    QCOMPARE(slider(dialog)->Value(), 0);
    QCOMPARE(slider(dialog)->thumbLeft(), 0.0);
    QCOMPARE(time(dialog), QStringLiteral("00:00"));
    QCOMPARE(media(dialog)->Position(), 0);
}

void tst_CompiledWave::compile_waveThatIsNoSound_saysSo()
{
    CSoundDialog dialog(QStringLiteral("slow"));
    dialog.write(QStringLiteral("slow.wav"), TimedSound::wave(1000));
    dialog.show();
    const auto *outline = dialog.form->findChild<WaveOutline *>();
    QCOMPARE(outline->words(), QString());
    compileInto(dialog, "no sound at all");
    QVERIFY2(outline->words().startsWith(QStringLiteral("This file cannot be played.\n")),
             qPrintable(outline->words()));
    dialog.click("btnClose");
    compileInto(dialog, TimedSound::wave(1000));
    QCOMPARE(outline->words(), QString());
}

ARDIPHON_TEST(tst_CompiledWave, QApplication)
#include "tst_CompiledWave.moc"
