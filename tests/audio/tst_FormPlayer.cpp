#include "audio/ui/FormPlayer.h"
#include "audio/ui/MySlider.h"
#include "audio/ui/WaveOutline.h"
#include "audio/ui/WavePlayer.h"
#include "platform/ui/MMControl.h"
#include "support/Controls.h"
#include "support/SoundServer.h"
#include "support/TestMain.h"
#include "support/TestProgram.h"
#include "support/TimeLimit.h"
#include "support/TimedSound.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include <memory>

using namespace ardiphon;

namespace {

const QString idle = QStringLiteral("Wave Player");
const QString ready = QStringLiteral("Wave Player - Ready");
const QString playing = QStringLiteral("Wave Player - Playing");
const QString noDevice = QStringLiteral("Wave Player - No sound device");

} // namespace

/// The player's window.
class tst_FormPlayer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void device_missing_playSaysSoInTheCaption(); // comes first: the server starts afterwards
    void device_appears_playWorks();

    void opening_showsNoFile();
    void openWave_asksForAWave();
    void openWave_showsLengthAndState();
    void openWave_cancel_changesNothing();
    void openWave_emptyFile_isNotOpened();
    void openWave_nameOfNoFile_isTaken();
    void openWave_longPath_leavesTheWindowAsItIs();
    void openWave_noSound_leavesTheSlider();
    void openWave_another_setsEverythingBack();
    void play_disablesButtonsAndShowsTime();
    void stop_keepsThePlace();
    void prev_showsTheBeginning();
    void end_rewindsAndEnables();
    void drag_whilePlaying_goesOnAtTheNewPlace();
    void drag_whileStopped_movesTheStartOnly();
    void track_whilePlaying_goesOnThere();
    void track_whileStopped_startsNothing();
    void outline_showsThePeaksOfEachChannel();
    void outline_press_seeksAsTheTrackDoes();
    void outline_hugeFile_stopsWithTheWindow();
    void editor_noSetting_comesFirst();
    void editor_noWave_isReported();
    void editor_noFile_isReported();
    void editor_isStartedWithTheWave();
    void exitAndEscape_closeAndEndTheSound_data();
    void exitAndEscape_closeAndEndTheSound();

private:
    template <typename Control>
    Control *control(const char *name) const
    {
        return controlIn<Control>(*m_form, QLatin1String(name));
    }
    void click(const char *name)
    {
        QTest::mouseClick(control<QAbstractButton>(name), Qt::LeftButton);
    }
    QString text(const char *name) const { return control<QLabel>(name)->text(); }
    QString caption() const { return control<QGroupBox>("Frame1")->title(); }
    MySlider *slider() const { return control<MySlider>("MySlider1"); }
    MMControl *media() const { return control<MMControl>("MMControl1"); }
    void openWave(const std::optional<QString> &path);
    void openSound(int milliseconds)
    {
        openWave(m_program->write(QStringLiteral("a.wav"), TimedSound::wave(milliseconds)));
    }
    void moveThumb(int from, int to);
    int pixelOf(int milliseconds) const
    {
        return milliseconds * (slider()->width() - MySlider::ThumbWidth) / slider()->Max();
    }

    SoundServer m_server;
    std::unique_ptr<TestProgram> m_program;
    std::unique_ptr<QWidget> m_form;
};

void tst_FormPlayer::init()
{
    m_program = std::make_unique<TestProgram>();
    m_form = std::make_unique<FormPlayer>(m_program->config, m_program->dialogs, nullptr);
    m_form->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_form.get()));
}

void tst_FormPlayer::cleanup()
{
    m_form.reset();
    QCOMPARE(m_program->dialogs.verify(), QString());
    m_program.reset();
    QVERIFY(m_server.waitForSilence());
}

void tst_FormPlayer::openWave(const std::optional<QString> &path)
{
    m_program->dialogs.expectOpen(QStringLiteral("Open Wave File (*.WAV)"), path);
    click("Command2");
}

/// Presses the thumb at one place, moves it to another and leaves it pressed.
void tst_FormPlayer::moveThumb(int from, int to)
{
    QTest::mousePress(slider(), Qt::LeftButton, {}, QPoint(from, 7));
    const QPointF at(to, 7);
    QMouseEvent move(QEvent::MouseMove, at, slider()->mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                     {});
    QApplication::sendEvent(slider(), &move);
}

// Without a sound device. -------------------------------------------------------------------------

void tst_FormPlayer::device_missing_playSaysSoInTheCaption()
{
    openSound(2000);
    QCOMPARE(caption(), ready);
    click("Play");
    QCOMPARE(caption(), noDevice);
    QVERIFY(control<QPushButton>("Command2")->isEnabled());
    QVERIFY(control<QPushButton>("EditorFileWave")->isEnabled());
    QTest::mouseClick(slider(), Qt::LeftButton, {}, QPoint(slider()->width() / 2, 7));
    QCOMPARE(text("TextTime"), QStringLiteral("00:01")); // seeking works
}

void tst_FormPlayer::device_appears_playWorks()
{
    openSound(2000);
    click("Play");
    QCOMPARE(caption(), noDevice);
    QCOMPARE(m_server.start(), QString());
    click("Play");
    QCOMPARE(caption(), playing);
}

// Opening. ----------------------------------------------------------------------------------------

void tst_FormPlayer::opening_showsNoFile()
{
    QCOMPARE(caption(), idle);
    QCOMPARE(text("Wave"), QString());
    QCOMPARE(text("TextTime"), QStringLiteral("00:00"));
    QCOMPARE(text("Lbl_Durata"), QStringLiteral("Total Time:"));
    QCOMPARE(slider()->Max(), 1);
    QCOMPARE(slider()->Value(), 0);
    QCOMPARE(control<QPushButton>("Command1")->text(), QStringLiteral("E&xit"));
    QCOMPARE(control<QPushButton>("Command2")->text(), QStringLiteral("&Open Wave"));
    QCOMPARE(control<QPushButton>("EditorFileWave")->text(), QStringLiteral("&Wave Editor"));
    for (const char *name : {"Prev", "Play", "Stop"}) {
        QVERIFY(!control<QToolButton>(name)->isEnabled());
        QVERIFY(!control<QToolButton>(name)->icon().isNull());
    }
}

void tst_FormPlayer::openWave_asksForAWave()
{
    openWave(std::nullopt);
    const FileQuestion &question = m_program->dialogs.fileQuestions.constFirst();
    QCOMPARE(question.filter, QStringLiteral("Wave files |*.wav"));
    QCOMPARE(question.directory, QDir::currentPath());
    QVERIFY(!question.mustExist);
}

void tst_FormPlayer::openWave_showsLengthAndState()
{
    // 65.5 seconds of 1,000 frames each.
    const QString path = m_program->write(QStringLiteral("a.wav"),
                                          WaveBytes::wave(1, 1000, QByteArray(131'000, 'x')));
    openWave(path);
    QCOMPARE(text("Wave"), path);
    QCOMPARE(text("Lbl_Durata"), QStringLiteral("Total Time: \r\n01:05 (mm:ss)"));
    QCOMPARE(caption(), ready);
    QCOMPARE(slider()->Max(), 65500);
    QCOMPARE(slider()->Value(), 0);
}

void tst_FormPlayer::openWave_cancel_changesNothing()
{
    openSound(2000);
    const QString path = text("Wave");
    openWave(std::nullopt);
    QCOMPARE(text("Wave"), path);
    QCOMPARE(slider()->Max(), 2000);
    QCOMPARE(media()->Mode(), int(MMControl::Stopped));
}

void tst_FormPlayer::openWave_emptyFile_isNotOpened()
{
    openWave(m_program->write(QStringLiteral("a.wav"), {}));
    QCOMPARE(caption(), idle);
    QCOMPARE(text("Lbl_Durata"), QStringLiteral("Total Time:"));
    QCOMPARE(m_form->findChild<WaveOutline *>()->words(), QStringLiteral("This file is empty."));
}

void tst_FormPlayer::openWave_nameOfNoFile_isTaken()
{
    openSound(5000);
    const QString path = m_program->path(QStringLiteral("nowhere.wav"));
    openWave(path);
    QCOMPARE(text("Wave"), path);
    QCOMPARE(media()->Mode(), int(MMControl::NotOpen));
    QCOMPARE(slider()->Max(), 1);
    QCOMPARE(text("TextTime"), QStringLiteral("00:00"));
    const auto *outline = m_form->findChild<WaveOutline *>();
    QCOMPARE(outline->words(), QStringLiteral("There is no such file."));
    openSound(5000);
    QCOMPARE(outline->words(), QString());
}

void tst_FormPlayer::openWave_longPath_leavesTheWindowAsItIs()
{
    const QSize before = m_form->size();
    const QString path = QStringLiteral("/a long path").repeated(40) + QStringLiteral(".wav");
    openWave(path);
    QCOMPARE(text("Wave"), path);
    QVERIFY(control<QLabel>("Wave")->toolTip().contains(path));
    QCoreApplication::processEvents(); // the layout counts
    QCOMPARE(m_form->size(), before);
    QVERIFY(m_form->minimumSizeHint().width() <= before.width());
    QCOMPARE(control<QLabel>("Wave")->height(), control<QLabel>("Wave")->sizeHint().height());
    m_form->resize(900, m_form->height());
    QTRY_VERIFY(control<QLabel>("Wave")->width() > 800);
}

void tst_FormPlayer::openWave_noSound_leavesTheSlider()
{
    openWave(m_program->write(QStringLiteral("a.wav"), "no sound at all"));
    QCOMPARE(slider()->Max(), 1);
    QCOMPARE(text("Lbl_Durata"), QStringLiteral("Total Time: \r\n00:00 (mm:ss)"));
    QCOMPARE(caption(), ready);
    QVERIFY(!control<QToolButton>("Play")->isEnabled());
    const QString words = m_form->findChild<WaveOutline *>()->words();
    QVERIFY2(words.startsWith(QStringLiteral("This file cannot be played.\n")), qPrintable(words));
    QVERIFY(words.size() > 40); // and why
}

void tst_FormPlayer::openWave_another_setsEverythingBack()
{
    openSound(5000);
    QTest::mouseClick(slider(), Qt::LeftButton, {}, QPoint(slider()->width() / 2, 7));
    QVERIFY(slider()->Value() > 2000);
    openWave(m_program->write(QStringLiteral("b.wav"), "no sound at all"));
    QCOMPARE(slider()->Max(), 1);
    QCOMPARE(slider()->Value(), 0);
    QCOMPARE(text("TextTime"), QStringLiteral("00:00"));
    QCOMPARE(media()->Mode(), int(MMControl::NotOpen));
}

// Playing. ----------------------------------------------------------------------------------------

void tst_FormPlayer::play_disablesButtonsAndShowsTime()
{
    openSound(3000);
    click("Play");
    QCOMPARE(caption(), playing);
    QVERIFY(!control<QPushButton>("Command2")->isEnabled());
    QVERIFY(!control<QPushButton>("EditorFileWave")->isEnabled());
    QVERIFY(control<QPushButton>("Command1")->isEnabled());
    QTRY_COMPARE(text("TextTime"), QStringLiteral("00:01"));
    QVERIFY(slider()->Value() >= 1000);
    auto *outline = m_form->findChild<WaveOutline *>();
    QVERIFY(std::abs(outline->linePlace() / outline->width() - slider()->Value() / 3000.0) < 0.02);
}

void tst_FormPlayer::stop_keepsThePlace()
{
    openSound(5000);
    click("Play");
    QTRY_VERIFY(slider()->Value() > 300);
    click("Stop");
    QCOMPARE(caption(), ready);
    QVERIFY(control<QPushButton>("Command2")->isEnabled());
    QVERIFY(control<QPushButton>("EditorFileWave")->isEnabled());
    QVERIFY(slider()->Value() > 300);
    QVERIFY(media()->Position() > 300);
}

void tst_FormPlayer::prev_showsTheBeginning()
{
    openSound(5000);
    QTest::mouseClick(slider(), Qt::LeftButton, {}, QPoint(slider()->width() / 2, 7));
    click("Prev");
    QCOMPARE(slider()->Value(), 0);
    QCOMPARE(text("TextTime"), QStringLiteral("00:00"));
}

void tst_FormPlayer::end_rewindsAndEnables()
{
    openSound(1200);
    click("Play");
    QTRY_COMPARE(caption(), ready);
    QCOMPARE(slider()->Value(), 0);
    QCOMPARE(text("TextTime"), QStringLiteral("00:00"));
    QCOMPARE(media()->Position(), 0);
    QVERIFY(control<QPushButton>("Command2")->isEnabled());
    QVERIFY(control<QPushButton>("EditorFileWave")->isEnabled());
}

// Seeking. ----------------------------------------------------------------------------------------

void tst_FormPlayer::drag_whilePlaying_goesOnAtTheNewPlace()
{
    openSound(10'000);
    click("Play");
    QTRY_VERIFY(slider()->Value() > 100);
    const int thumb = pixelOf(slider()->Value()) + 8;
    moveThumb(thumb, thumb + pixelOf(5000));
    QCOMPARE(media()->Mode(), int(MMControl::Stopped));
    QCOMPARE(caption(), playing);
    QCOMPARE(text("TextTime"), QStringLiteral("00:05"));
    QTest::mouseRelease(slider(), Qt::LeftButton);
    QCOMPARE(media()->Mode(), int(MMControl::Playing));
    QTRY_VERIFY(media()->Position() > 5100);
    QTRY_VERIFY(slider()->Value() > 5100);
}

void tst_FormPlayer::drag_whileStopped_movesTheStartOnly()
{
    openSound(10'000);
    moveThumb(8, 8 + pixelOf(6000));
    QTest::mouseRelease(slider(), Qt::LeftButton);
    QCOMPARE(media()->Mode(), int(MMControl::Stopped));
    QCOMPARE(caption(), ready);
    QCOMPARE(media()->Position(), 0);
    const int from = slider()->Value();
    click("Play");
    QVERIFY(media()->Position() >= from - 1);
}

void tst_FormPlayer::track_whilePlaying_goesOnThere()
{
    openSound(10'000);
    click("Play");
    QTRY_VERIFY(slider()->Value() > 100);
    QTest::mouseClick(slider(), Qt::LeftButton, {}, QPoint(pixelOf(7000), 7));
    QCOMPARE(media()->Mode(), int(MMControl::Playing));
    QVERIFY(media()->Position() > 6900);
}

void tst_FormPlayer::track_whileStopped_startsNothing()
{
    openSound(10'000);
    QTest::mouseClick(slider(), Qt::LeftButton, {}, QPoint(pixelOf(7100), 7));
    QCOMPARE(media()->Mode(), int(MMControl::Stopped));
    QCOMPARE(text("TextTime"), QStringLiteral("00:07"));
    click("Play");
    QVERIFY(media()->Position() > 6900);
    QVERIFY(media()->Position() < 9000);
}

// The outline. ------------------------------------------------------------------------------------

void tst_FormPlayer::outline_showsThePeaksOfEachChannel()
{
    // Silent but for the second half of the second channel.
    QByteArray samples(4 * 5000, '\0');
    for (int frame = 0; frame < 5000; ++frame)
        samples +=
            WaveBytes::number<qint16>(0) + WaveBytes::number<qint16>(frame % 2 ? 16384 : -8192);
    openWave(m_program->write(QStringLiteral("a.wav"), WaveBytes::wave(2, 44100, samples)));
    const auto *outline = m_form->findChild<WaveOutline *>();
    const auto peak = [&](int channel, double from, double to) {
        const Peaks &peaks = outline->peaks();
        return peaks.over(int(from * peaks.columns()), int(to * peaks.columns()), channel);
    };
    // It is read when nobody else wants the processor.
    QTRY_VERIFY_WITH_TIMEOUT(outline->peaks().columns() > 0 && !outline->isReading(), 60'000);
    QTRY_COMPARE(peak(1, 0.51, 1), (Peak{-0.25F, 0.5F}));
    QCOMPARE(outline->peaks().channels(), 2);
    QCOMPARE(peak(1, 0, 0.49), Peak());
    QCOMPARE(peak(0, 0, 1), Peak());
}

void tst_FormPlayer::outline_press_seeksAsTheTrackDoes()
{
    openSound(10'000);
    auto *outline = m_form->findChild<WaveOutline *>();
    QTest::mouseClick(outline, Qt::LeftButton, {}, QPoint(outline->width() / 2, 20));
    QVERIFY(std::abs(slider()->Value() - 5000) < 50);
    QCOMPARE(media()->Mode(), int(MMControl::Stopped));
    click("Play");
    QVERIFY(media()->Position() > 4900);
    QTest::mouseClick(outline, Qt::LeftButton, {}, QPoint(outline->width() / 5, 20));
    QCOMPARE(media()->Mode(), int(MMControl::Playing));
    QVERIFY(media()->Position() < 4500);
}

void tst_FormPlayer::outline_hugeFile_stopsWithTheWindow()
{
    // 16-bit samples for many hours, up to the end of the file, that take no room.
    const auto number = [](quint32 value) {
        QByteArray bytes(4, '\0');
        qToBigEndian(value, bytes.data());
        return bytes;
    };
    const QString path =
        m_program->write(QStringLiteral("huge.au"), ".snd" + number(24) + number(0xffffffff) +
                                                        number(3) + number(44100) + number(2));
    if (!QFile::resize(path, qint64(1) << 40))
        QSKIP("this file system has no room for a file full of holes");
    openWave(path);
    const auto *outline = m_form->findChild<WaveOutline *>();
    QTRY_VERIFY(outline->isReading());
    const TimeLimit limit;
    click("Command1");
    QVERIFY(!outline->isReading());
}

// The wave editor. --------------------------------------------------------------------------------

void tst_FormPlayer::editor_noSetting_comesFirst()
{
    m_program->dialogs.expect({QStringLiteral("No Wave Editor associated to program!\r\n"
                                              "Select File->Settings->Wave Editor"),
                               QStringLiteral("ArdiphonPro"), MessageIcon::Exclamation,
                               MessageButtons::Ok});
    click("EditorFileWave");
    QVERIFY(m_form->isVisible());
}

void tst_FormPlayer::editor_noWave_isReported()
{
    m_program->config.WaveEditor = QStringLiteral("editor");
    m_program->dialogs.expect({QStringLiteral("No wave file!"), QStringLiteral("ArdiphonPro"),
                               MessageIcon::Exclamation, MessageButtons::Ok});
    click("EditorFileWave");
    QVERIFY(m_form->isVisible());
}

void tst_FormPlayer::editor_noFile_isReported()
{
    m_program->config.WaveEditor = QStringLiteral("editor");
    openSound(100);
    QVERIFY(QFile::remove(text("Wave")));
    m_program->dialogs.expect({QStringLiteral("File not found!"), QStringLiteral("ArdiphonPro"),
                               MessageIcon::Exclamation, MessageButtons::Ok});
    click("EditorFileWave");
    QVERIFY(m_form->isVisible());
}

void tst_FormPlayer::editor_isStartedWithTheWave()
{
    const QString told = m_program->path(QStringLiteral("told"));
    const QString editor =
        m_program->write(QStringLiteral("editor.sh"),
                         "#!/bin/sh\nprintf '%s|' $# \"$1\" > '" + told.toUtf8() + ".new'\nmv '" +
                             told.toUtf8() + ".new' '" + told.toUtf8() + "'\n");
    QVERIFY(QFile::setPermissions(editor, QFile::ReadOwner | QFile::ExeOwner));
    m_program->config.WaveEditor = editor;
    const QString wave =
        m_program->write(QStringLiteral("with a blank.wav"), TimedSound::wave(100));
    openWave(wave);
    click("EditorFileWave");
    QVERIFY(!m_form->isVisible());
    QTRY_COMPARE(m_program->read(QStringLiteral("told")), "1|" + wave.toUtf8() + '|');
}

// Closing, and other windows. ---------------------------------------------------------------------

void tst_FormPlayer::exitAndEscape_closeAndEndTheSound_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("exit") << false;
    QTest::newRow("escape") << true;
}

void tst_FormPlayer::exitAndEscape_closeAndEndTheSound()
{
    QFETCH(bool, byKey);
    openSound(10'000);
    click("Play");
    QCOMPARE(media()->Mode(), int(MMControl::Playing));
    if (byKey)
        QTest::keyClick(m_form.get(), Qt::Key_Escape);
    else
        click("Command1");
    QVERIFY(!m_form->isVisible());
    QCOMPARE(media()->Mode(), int(MMControl::NotOpen));
}

ARDIPHON_TEST(tst_FormPlayer, QApplication)
#include "tst_FormPlayer.moc"
