#include "platform/ui/MMControl.h"
#include "support/SoundServer.h"
#include "support/TestMain.h"
#include "support/TimedSound.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <memory>

using namespace ardiphon;

namespace {

QString word(const char *text) { return QString::fromLatin1(text); }

/// Counts what the toolkit's engine is told from its thread, such as the server's end.
class EngineNews : public QObject
{
public:
    EngineNews() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::MetaCall && watched->inherits("QPulseAudioEngine"))
            ++count;
        return false;
    }

    int count = 0;
};

} // namespace

/// The player of sound files, playing into a real sound server.
class tst_MMControl : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    // Without a sound device; these come first.
    void device_missing_openAndLengthWorkAndPlayReportsIt();
    void close_forgetsTheStartPointAndTheFailure();
    void device_appears_playWorks();

    void open_ratesAndChannels_data();
    void open_ratesAndChannels();
    void open_badFiles_data();
    void open_badFiles();
    void open_hugeFile_isNotRead();
    void buttons_areOfferedWhereTheyDoSomething();

    void play_isHeardSampleForSample();
    void play_end_isNotifiedOnce();
    void play_fromStartPoint_startsThere();
    void play_startPointAtTheEnd_endsAtOnce();
    void play_moreChannelsThanTheDevice_areAveraged();
    void play_position_followsWhatIsHeard();
    void stop_keepsThePosition();
    void stop_thenPlayElsewhere_leavesNothingOfTheOldSound();
    void prev_whilePlaying_goesOnAtTheBeginning();
    void close_whilePlaying_letsGo();
    void file_deletedWhilePlaying_goesOn();
    void file_cutWhilePlaying_endsThere();
    void file_overwrittenWhilePlaying_neverHarms();
    void device_goesWhilePlaying_isReported();
    void device_comesBack_isFoundAtTheNextPlay_data();
    void device_comesBack_isFoundAtTheNextPlay();

private:
    QString write(const char *name, const QByteArray &bytes);
    void open(const QString &path);
    void command(const char *name) { m_control->SetCommand(word(name)); }
    QToolButton *button(const char *name)
    {
        return m_control->findChild<QToolButton *>(word(name));
    }
    /// The places of the file that were heard since the last call, without the silence.
    QList<int> heard();
    /// Waits until that many frames were heard, and gives all that were.
    QList<int> hear(int frames);

    SoundServer m_server;
    QTemporaryDir m_folder;
    std::unique_ptr<MMControl> m_control;
    QList<int> m_heard;
};

void tst_MMControl::initTestCase() { QVERIFY(m_folder.isValid()); }

void tst_MMControl::init()
{
    m_control = std::make_unique<MMControl>(MMControl::Icons(), nullptr);
    m_control->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_control.get()));
}

void tst_MMControl::cleanup()
{
    m_control.reset();
    QVERIFY(m_server.waitForSilence());
    m_heard.clear();
}

QString tst_MMControl::write(const char *name, const QByteArray &bytes)
{
    const QString path = m_folder.filePath(word(name));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", name);
    return path;
}

void tst_MMControl::open(const QString &path)
{
    m_control->SetFileName(path);
    command("Open");
}

QList<int> tst_MMControl::heard()
{
    for (const SoundServer::Frame &frame : m_server.takeRecording()) {
        if (!frame.isSilent())
            m_heard.append(TimedSound::placeOf(frame));
    }
    return m_heard;
}

QList<int> tst_MMControl::hear(int frames)
{
    if (!QTest::qWaitFor([&] { return heard().size() >= frames; }, 20'000))
        qWarning("heard only %d frames", int(m_heard.size()));
    return std::exchange(m_heard, {});
}

// Without a sound device. -------------------------------------------------------------------------

void tst_MMControl::device_missing_openAndLengthWorkAndPlayReportsIt()
{
    open(write("a.wav", TimedSound::wave(500)));
    QCOMPARE(m_control->Mode(), int(MMControl::Stopped));
    QCOMPARE(m_control->Length(), 500);
    QSignalSpy missing(m_control.get(), &MMControl::DeviceMissing);
    QSignalSpy done(m_control.get(), &MMControl::Done);
    m_control->SetFrom(200);
    command("Play");
    QCOMPARE(missing.count(), 1);
    QCOMPARE(done.count(), 1);
    QCOMPARE(done.at(0).at(0).toInt(), int(MMControl::Failed));
    QCOMPARE(m_control->Mode(), int(MMControl::Stopped));
    QCOMPARE(m_control->Position(), 200);
}

/// Nothing is heard here, but a play that fails leaves the position where it would have begun.
void tst_MMControl::close_forgetsTheStartPointAndTheFailure()
{
    open(write("bad.wav", "no sound at all"));
    QVERIFY(!m_control->ErrorMessage().isEmpty());
    open(write("a.wav", TimedSound::wave(500)));
    QCOMPARE(m_control->ErrorMessage(), QString());
    m_control->SetFrom(200);
    open(write("b.wav", TimedSound::wave(500)));
    command("Play");
    QCOMPARE(m_control->Position(), 0);
}

void tst_MMControl::device_appears_playWorks()
{
    QCOMPARE(m_server.start(), QString());
    open(write("a.wav", TimedSound::wave(300)));
    QSignalSpy done(m_control.get(), &MMControl::Done);
    QTRY_VERIFY_WITH_TIMEOUT((command("Play"), m_control->Mode() == MMControl::Playing), 20'000);
    QTRY_VERIFY(done.contains(QVariantList{int(MMControl::Successful)}));
    QVERIFY(!hear(300 * 44).isEmpty());
}

// Opening. ----------------------------------------------------------------------------------------

void tst_MMControl::open_ratesAndChannels_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("rate");

    for (int channels : {1, 2, 4, 8})
        QTest::addRow("%d channels", channels) << channels << 44100;
    for (int rate : {1000, 22050, 96000, 192000})
        QTest::addRow("rate %d", rate) << 2 << rate;
}

void tst_MMControl::open_ratesAndChannels()
{
    QFETCH(int, channels);
    QFETCH(int, rate);
    open(write("a.wav", WaveBytes::wave(channels, rate, QByteArray(rate * channels, 'x'))));
    QCOMPARE(m_control->Length(), 500);
    command("Play");
    QCOMPARE(m_control->Mode(), int(MMControl::Playing));
}

void tst_MMControl::open_badFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    using namespace WaveBytes;
    const QByteArray whole = wave(2, 44100, QByteArray(400, 'x'));
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("<CsoundSynthesizer>\r\n").repeated(50);
    QTest::newRow("cut in the header") << whole.first(30);
    QTest::newRow("cut before the samples") << whole.first(44);
    QTest::newRow("zero channels") << QByteArray(whole).replace(22, 2, number<qint16>(0));
    QTest::newRow("zero rate") << QByteArray(whole).replace(24, 4, number<qint32>(0));
    QTest::newRow("negative rate") << QByteArray(whole).replace(24, 4, number<qint32>(-44100));
    QTest::newRow("huge rate") << QByteArray(whole).replace(24, 4, number<qint32>(0x7fffffff));
    QTest::newRow("many channels") << QByteArray(whole).replace(22, 2, number<qint16>(1024));
    QTest::newRow("negative data size") << QByteArray(whole).replace(40, 4, number<qint32>(-1));
    QTest::newRow("negative format size") << QByteArray(whole).replace(16, 4, number<qint32>(-1));
    QTest::newRow("huge chunk") << riff(chunk("fmt ", format(2, 44100, 16)) + "junk" +
                                        number<qint32>(0x7fffffff) + chunk("data", "abcd"));
    QTest::newRow("endless chunks")
        << riff(chunk("fmt ", format(2, 44100, 16)) + chunk("junk", {}).repeated(10'000));
}

void tst_MMControl::open_badFiles()
{
    QFETCH(QByteArray, bytes);
    open(write("bad.wav", bytes));
    QVERIFY(m_control->Length() >= 0);
    QVERIFY(m_control->Length() < 1000);
    QSignalSpy done(m_control.get(), &MMControl::Done);
    command("Play");
    if (m_control->Mode() == MMControl::Playing)
        QTRY_COMPARE(done.count(), 1);
    QVERIFY(m_control->Mode() != MMControl::Playing);
}

void tst_MMControl::open_hugeFile_isNotRead()
{
    // 4 GB that take no room on the disk.
    QByteArray header = WaveBytes::wave(2, 44100, {});
    header.replace(40, 4, WaveBytes::number<quint32>(0xffffff00));
    const QString path = write("huge.wav", header);
    QVERIFY(QFile::resize(path, 44 + 0xffffff00LL));
    open(path);
    QCOMPARE(m_control->Length(), int(0xffffff00LL / 4 * 1000 / 44100));
    m_control->SetFrom(m_control->Length() - 100);
    QSignalSpy done(m_control.get(), &MMControl::Done);
    command("Play");
    QTRY_COMPARE(done.count(), 1);
    QCOMPARE(m_control->Position(), m_control->Length());
    QVERIFY(QFile::remove(path));
}

void tst_MMControl::buttons_areOfferedWhereTheyDoSomething()
{
    const auto offered = [this] {
        QString letters;
        for (const char *name : {"Prev", "Play", "Stop"})
            letters += button(name)->isEnabled() ? QChar::fromLatin1(name[1]) : u'-';
        return letters;
    };
    QCOMPARE(offered(), word("---"));
    open(write("a.wav", TimedSound::wave(5000)));
    QCOMPARE(offered(), word("-l-"));
    m_control->SetFrom(100);
    QCOMPARE(offered(), word("rl-"));
    QTest::mouseClick(button("Prev"), Qt::LeftButton);
    QCOMPARE(offered(), word("-l-"));
    QSignalSpy played(m_control.get(), &MMControl::PlayClick);
    button("Play")->setFocus();
    QTest::keyClick(button("Play"), Qt::Key_Space);
    QCOMPARE(played.count(), 1);
    QCOMPARE(offered(), word("r-t"));
    QVERIFY(button("Stop")->hasFocus());
    QTRY_VERIFY(m_control->Position() > 0);
    QTest::keyClick(button("Stop"), Qt::Key_Space);
    QCOMPARE(offered(), word("rl-"));
    QVERIFY(button("Play")->hasFocus());
    command("Close");
    QCOMPARE(offered(), word("---"));
    QCOMPARE(m_control->Mode(), int(MMControl::NotOpen));
}

// Playing. ----------------------------------------------------------------------------------------

void tst_MMControl::play_isHeardSampleForSample()
{
    constexpr int frames = 1000 * TimedSound::Rate / 1000;
    open(write("a.wav", TimedSound::wave(1000)));
    command("Play");
    const QList<int> places = hear(frames);
    QCOMPARE(places.size(), frames);
    for (int frame = 0; frame < frames; ++frame)
        QCOMPARE(places[frame], frame);
}

void tst_MMControl::play_end_isNotifiedOnce()
{
    open(write("a.wav", TimedSound::wave(200)));
    QSignalSpy done(m_control.get(), &MMControl::Done);
    command("Play");
    QTRY_COMPARE(done.count(), 1);
    QCOMPARE(done.at(0).at(0).toInt(), int(MMControl::Successful));
    QCOMPARE(m_control->Mode(), int(MMControl::Stopped));
    QCOMPARE(m_control->Position(), 200);
    command("Prev");
    command("Stop");
    QCOMPARE(m_control->Position(), 0);
    QCOMPARE(done.count(), 1);
}

void tst_MMControl::play_fromStartPoint_startsThere()
{
    open(write("a.wav", TimedSound::wave(1000)));
    m_control->SetFrom(700);
    QCOMPARE(m_control->Position(), 0); // only the next play moves it
    command("Play");
    QCOMPARE(hear(300 * 441 / 10).constFirst(), 700 * 441 / 10);
}

void tst_MMControl::play_startPointAtTheEnd_endsAtOnce()
{
    open(write("a.wav", TimedSound::wave(1000)));
    QSignalSpy done(m_control.get(), &MMControl::Done);
    for (int from : {1000, INT_MAX, -5}) {
        m_control->SetFrom(from);
        command("Play");
        QTRY_COMPARE(done.count(), 1);
        QCOMPARE(done.takeFirst().at(0).toInt(), int(MMControl::Successful));
    }
}

void tst_MMControl::play_moreChannelsThanTheDevice_areAveraged()
{
    QByteArray samples;
    for (int value : {16000, 9000, 4000, -8000, 1000})
        samples += WaveBytes::number<qint16>(value);
    open(write("five.wav", WaveBytes::wave(5, 44100, samples.repeated(20'000))));
    command("Play");
    QList<SoundServer::Frame> sound;
    QTRY_VERIFY(
        (sound += m_server.takeRecording(), sound.size() > 0 && !sound.constLast().isSilent()));
    QVERIFY(std::abs(sound.constLast().left - (16000 + 4000 + 1000) / 3) <= 1);
    QVERIFY(std::abs(sound.constLast().right - (9000 - 8000) / 2) <= 1);
}

void tst_MMControl::play_position_followsWhatIsHeard()
{
    open(write("a.wav", TimedSound::wave(3000)));
    QSignalSpy updates(m_control.get(), &MMControl::StatusUpdate);
    int last = -1;
    bool risesOnly = true;
    connect(m_control.get(), &MMControl::StatusUpdate, this, [&] {
        risesOnly = risesOnly && m_control->Position() >= last;
        last = m_control->Position();
    });
    command("Play");
    const QList<int> places = hear(1500 * 441 / 10);
    // The recording comes later than the sound, and the server hears up to 50 ms ahead.
    const int recorded = int(places.size()) * 10 / 441;
    QVERIFY2(std::abs(m_control->Position() - recorded) < 1000,
             qPrintable(QString::number(m_control->Position() - recorded)));
    QVERIFY(risesOnly);
    QVERIFY(updates.count() > 5);
}

void tst_MMControl::stop_keepsThePosition()
{
    open(write("a.wav", TimedSound::wave(3000)));
    QSignalSpy done(m_control.get(), &MMControl::Done);
    command("Play");
    QTRY_VERIFY(m_control->Position() > 200);
    command("Stop");
    const int position = m_control->Position();
    QVERIFY(position > 200);
    QCOMPARE(done.count(), 1);
    QCOMPARE(done.at(0).at(0).toInt(), int(MMControl::Aborted));
    heard();
    m_heard.clear();
    command("Play");
    QTRY_VERIFY(m_control->Position() > position + 200);
    QVERIFY(hear(1).contains(position * 441 / 10 + 100));
}

void tst_MMControl::stop_thenPlayElsewhere_leavesNothingOfTheOldSound()
{
    open(write("a.wav", TimedSound::wave(8000)));
    command("Play");
    QTRY_VERIFY(m_control->Position() > 500);
    const int stoppedAt = m_control->Position() * 441 / 10;
    command("Stop");
    m_control->SetFrom(6000);
    command("Play");
    const QList<int> places = hear(2500 * 441 / 10);
    const auto second = std::find_if(places.begin(), places.end(),
                                     [](int place) { return place >= 6000 * 441 / 10; });
    QVERIFY(second != places.end());
    QCOMPARE(*second, 6000 * 441 / 10);
    QVERIFY(std::is_sorted(second, places.end())); // nothing of before comes behind
    QVERIFY(std::is_sorted(places.begin(), second));
    // What was handed over but not heard yet is dropped, but for what the server was about to play.
    QVERIFY2(*(second - 1) < stoppedAt + 250 * 441 / 10,
             qPrintable(QString::number(*(second - 1) - stoppedAt)));
}

void tst_MMControl::prev_whilePlaying_goesOnAtTheBeginning()
{
    open(write("a.wav", TimedSound::wave(5000)));
    m_control->SetFrom(3000);
    command("Play");
    QTRY_VERIFY(m_control->Position() > 3200);
    QTest::mouseClick(button("Prev"), Qt::LeftButton);
    QCOMPARE(m_control->Mode(), int(MMControl::Playing));
    QVERIFY(m_control->Position() < 3000);
    QTRY_VERIFY(heard().contains(4410));
}

void tst_MMControl::close_whilePlaying_letsGo()
{
    open(write("a.wav", TimedSound::wave(5000)));
    command("Play");
    QTRY_VERIFY(m_control->Position() > 100);
    QSignalSpy done(m_control.get(), &MMControl::Done);
    command("Close");
    QCOMPARE(done.count(), 1);
    QCOMPARE(done.at(0).at(0).toInt(), int(MMControl::Aborted));
    QCOMPARE(m_control->Mode(), int(MMControl::NotOpen));
    QCOMPARE(m_control->Length(), 0);
    QCOMPARE(m_control->Position(), 0);
    command("Play");
    QCOMPARE(m_control->Mode(), int(MMControl::NotOpen));
}

// The file changes while it plays. ----------------------------------------------------------------

void tst_MMControl::file_deletedWhilePlaying_goesOn()
{
    const QString path = write("gone.wav", TimedSound::wave(1000));
    open(path);
    command("Play");
    QVERIFY(QFile::remove(path));
    QCOMPARE(hear(44100).constLast(), 44099);
}

void tst_MMControl::file_cutWhilePlaying_endsThere()
{
    const QString path = write("cut.wav", TimedSound::wave(10'000));
    open(path);
    QSignalSpy done(m_control.get(), &MMControl::Done);
    command("Play");
    QVERIFY(QFile::resize(path, 44 + 44100 * 4)); // to its first second
    QTRY_COMPARE_WITH_TIMEOUT(done.count(), 1, 8000);
    QCOMPARE(done.at(0).at(0).toInt(), int(MMControl::Successful));
    QVERIFY(m_control->Position() <= 2000);
}

void tst_MMControl::file_overwrittenWhilePlaying_neverHarms()
{
    const QString path = write("new.wav", TimedSound::wave(1500));
    open(path);
    QSignalSpy done(m_control.get(), &MMControl::Done);
    command("Play");
    write("new.wav", QByteArray("anything but sound ").repeated(1000));
    QTRY_COMPARE(done.count(), 1);
    open(path);
    QCOMPARE(m_control->Mode(), int(MMControl::NotOpen));
}

void tst_MMControl::device_goesWhilePlaying_isReported()
{
    open(write("a.wav", TimedSound::wave(10'000)));
    QSignalSpy missing(m_control.get(), &MMControl::DeviceMissing);
    command("Play");
    QTRY_VERIFY(m_control->Position() > 300);
    m_server.stop();
    QTRY_COMPARE_WITH_TIMEOUT(missing.count(), 1, 15'000);
    QCOMPARE(m_control->Mode(), int(MMControl::Stopped));
    QVERIFY(m_control->Position() > 100);
    QCOMPARE(m_server.start(), QString());
    QTRY_VERIFY_WITH_TIMEOUT((command("Play"), m_control->Mode() == MMControl::Playing), 20'000);
}

void tst_MMControl::device_comesBack_isFoundAtTheNextPlay_data()
{
    QTest::addColumn<bool>("playing");
    QTest::newRow("gone while playing") << true;
    QTest::newRow("gone while idle") << false;
}

void tst_MMControl::device_comesBack_isFoundAtTheNextPlay()
{
    QFETCH(bool, playing);
    open(write("a.wav", TimedSound::wave(10'000)));
    QSignalSpy missing(m_control.get(), &MMControl::DeviceMissing);
    for (const int from : {2000, 4000}) { // it may go more than once
        QTRY_VERIFY_WITH_TIMEOUT((command("Play"), m_control->Mode() == MMControl::Playing),
                                 20'000);
        QTRY_VERIFY(m_control->Position() > 100);
        if (!playing)
            command("Stop");
        const EngineNews news;
        m_server.stop();
        if (playing)
            QTRY_COMPARE_WITH_TIMEOUT(missing.count(), 1, 15'000);
        else
            QTRY_VERIFY(news.count > 0); // else nothing can know that this server is a new one
        missing.clear();
        command("Play");
        QCOMPARE(missing.count(), 1);
        QCOMPARE(m_server.start(), QString());
        missing.clear();
        m_heard.clear();
        m_control->SetFrom(from);
        command("Play");
        QCOMPARE(m_control->Mode(), int(MMControl::Playing));
        QCOMPARE(hear(1).constFirst(), from * 441 / 10);
        QCOMPARE(missing.count(), 0);
    }
}

ARDIPHON_TEST(tst_MMControl, QApplication)
#include "tst_MMControl.moc"
