// What the player takes: how soon a file opens, how soon it sounds, how near the shown position is
// to what is heard, and what playing costs. It plays into a silent server of its own.

#include "Measure.h"

#include "app/ConfigurationBlock.h"
#include "audio/ui/MySlider.h"
#include "audio/ui/WaveOutline.h"
#include "audio/ui/WavePlayer.h"
#include "platform/ui/MMControl.h"
#include "support/ScriptedDialogs.h"
#include "support/SoundServer.h"
#include "support/TimedSound.h"

#include <QTest>

using namespace ardiphon;

namespace measure::player {

using measure::NoSize;

struct Bench
{
    QTemporaryDir folder;
    SoundServer server;
    ConfigurationBlock config;
    ScriptedDialogs dialogs;
    QString wave;
    WavePlayer player{config, dialogs, {[this] { return wave; }, {}, {}, [] {}}, nullptr};
    MMControl &media = *player.findChild<MMControl *>();
};

void measureOpen(Bench &bench)
{
    QByteArray header = WaveBytes::wave(2, 44100, {});
    header.replace(40, 4, WaveBytes::number<quint32>(0xffffff00));
    bench.wave = measure::write(bench.folder, "huge.wav", header);
    QFile::resize(bench.wave, 44 + 0xffffff00LL);
    const double before = measure::ownMegabytes();
    measure::row("player opens 4 GB", NoSize,
                 measure::wallTime([&] { bench.player.openNewWave(); }), "ms");
    double longest = 0; // between two turns of the event loop
    for (int turn = 0; turn < 400; ++turn)
        longest = std::max(longest, measure::wallTime([] { QTest::qWait(5); }) - 5);
    measure::row("longest wait of a key while it is read", NoSize, longest, "ms");
    measure::row("memory for 4 GB", NoSize, measure::ownMegabytes() - before, "MB");
    bench.player.closeWave();
}

/// The newest place of the file that is in the recording, or -1.
int newestPlace(SoundServer &server)
{
    const QList<SoundServer::Frame> frames = server.takeRecording();
    return frames.isEmpty() ? -1 : TimedSound::placeOf(frames.constLast());
}

/// The recording gives a piece of sound once the server has rendered it, about when it is heard.
void measureStartAndPosition(Bench &bench)
{
    bench.wave = measure::write(bench.folder, "timed.wav", TimedSound::wave(12'000));
    bench.player.openNewWave();
    std::vector<double> starts;
    std::vector<double> differences;
    for (int run = 0; run < 5; ++run) {
        bench.server.waitForSilence();
        bench.media.SetFrom(run * 1500);
        QElapsedTimer clock;
        clock.start();
        bench.media.SetCommand(QStringLiteral("Play"));
        bool sounds = false;
        while (!clock.hasExpired(2500)) {
            QTest::qWait(1);
            const int place = newestPlace(bench.server);
            if (place < 0)
                continue;
            if (!sounds)
                starts.push_back(double(clock.nsecsElapsed()) / 1e6);
            sounds = true;
            if (clock.hasExpired(300))
                differences.push_back(bench.media.Position() - place * 1000.0 / TimedSound::Rate);
        }
        bench.media.SetCommand(QStringLiteral("Stop"));
    }
    std::sort(starts.begin(), starts.end());
    std::sort(differences.begin(), differences.end());
    const auto part = [&](double share) {
        return differences[std::size_t(share * double(differences.size() - 1))];
    };
    measure::row("player start, recorder included", NoSize, measure::median(starts), "ms");
    measure::row("player start, slowest", NoSize, starts.back(), "ms");
    measure::row("position less recording, 5th percentile", NoSize, part(0.05), "ms");
    measure::row("position less recording", NoSize, part(0.5), "ms");
    measure::row("position less recording, 95th percentile", NoSize, part(0.95), "ms");
}

void measureCost(Bench &bench)
{
    bench.server.waitForSilence();
    bench.media.SetFrom(0);
    const double memory = measure::ownMegabytes();
    measure::row("recorder alone", NoSize, measure::idleShare(3000), "% of a core");
    bench.media.SetCommand(QStringLiteral("Play"));
    measure::row("playing, recorder included", NoSize, measure::idleShare(6000), "% of a core");
    measure::row("memory for playing", NoSize, measure::ownMegabytes() - memory, "MB");
    bench.media.SetCommand(QStringLiteral("Stop"));
}

BENCHMARK(player)
{
    QApplication application(argc, argv);
    Bench bench;
    const QString failure = bench.server.start();
    if (!failure.isEmpty())
        qFatal("%s", qPrintable(failure));
    bench.player.show();
    measureOpen(bench);
    measureStartAndPosition(bench);
    measureCost(bench);
    return 0;
}

} // namespace measure::player
