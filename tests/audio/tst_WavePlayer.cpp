#include "audio/ui/MySlider.h"
#include "audio/ui/WavePlayer.h"
#include "support/SoundServer.h"
#include "support/TestMain.h"
#include "support/TestProgram.h"
#include "support/TimedSound.h"

#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include <memory>

using namespace ardiphon;

/// The player as other windows embed it.
class tst_WavePlayer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCOMPARE(m_server.start(), QString()); }
    void init() { m_program = std::make_unique<TestProgram>(); }
    void cleanup();

    void firstWave_isOpenedAtItsBeginning();
    void noWave_opensNothing();
    void hostButtonsAndMessage_areItsOwn();

private:
    void embed(const WavePlayerHost &host);
    void click(const char *name)
    {
        QTest::mouseClick(m_player->findChild<QAbstractButton *>(QLatin1String(name)),
                          Qt::LeftButton);
    }
    MySlider *slider() const { return m_player->findChild<MySlider *>("MySlider1"); }

    SoundServer m_server;
    std::unique_ptr<TestProgram> m_program;
    std::unique_ptr<WavePlayer> m_player;
};

void tst_WavePlayer::cleanup()
{
    m_player.reset();
    QCOMPARE(m_program->dialogs.verify(), QString());
    m_program.reset();
    QVERIFY(m_server.waitForSilence());
}

void tst_WavePlayer::embed(const WavePlayerHost &host)
{
    m_player = std::make_unique<WavePlayer>(m_program->config, m_program->dialogs, host, nullptr);
    m_player->show();
}

void tst_WavePlayer::firstWave_isOpenedAtItsBeginning()
{
    const QString path = m_program->write(QStringLiteral("a.wav"), TimedSound::wave(500));
    embed({[&] { return path + QStringLiteral("  "); }, {}, {}, [] {}});
    m_player->openFirstWave();
    QCOMPARE(m_player->title(), QStringLiteral("Wave Player - Ready"));
    QCOMPARE(slider()->Max(), 500);
    QCOMPARE(slider()->Value(), 0);
}

void tst_WavePlayer::noWave_opensNothing()
{
    embed({[] { return QString(); }, {}, {}, [] {}});
    m_player->openFirstWave();
    QCOMPARE(m_player->title(), QStringLiteral("Wave Player"));
    QCOMPARE(slider()->Max(), 1);
}

void tst_WavePlayer::hostButtonsAndMessage_areItsOwn()
{
    QString wave;
    QPushButton first;
    QPushButton second;
    embed({[&] { return wave; },
           QStringLiteral("No wave file generated!"),
           {&first, &second},
           [] {}});
    m_program->config.WaveEditor = QStringLiteral("editor");
    m_program->dialogs.expect({QStringLiteral("No wave file generated!"),
                               QStringLiteral("ArdiphonPro"), MessageIcon::Exclamation,
                               MessageButtons::Ok});
    click("EditorFileWave");
    wave = m_program->write(QStringLiteral("a.wav"), TimedSound::wave(500));
    m_player->OpenPlayerWave();
    click("Play");
    QVERIFY(!first.isEnabled());
    QVERIFY(!second.isEnabled());
    QTRY_VERIFY(first.isEnabled() && second.isEnabled());
}

ARDIPHON_TEST(tst_WavePlayer, QApplication)
#include "tst_WavePlayer.moc"
