// What the player takes: how soon a file opens, how soon it sounds, how near the shown position is
// to what is heard, and what playing costs. It plays into a silent server of its own.

#include "app/ConfigurationBlock.h"
#include "audio/ui/MySlider.h"
#include "audio/ui/WaveOutline.h"
#include "audio/ui/WavePlayer.h"
#include "platform/ui/MMControl.h"
#include "support/ScriptedDialogs.h"
#include "support/SoundServer.h"
#include "support/TimedSound.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

using namespace ardiphon;

namespace {

double processMilliseconds()
{
    timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

/// Of memory that is this process's own.
double residentMegabytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("RssAnon:"))
            return line.mid(8).simplified().split(' ').constFirst().toDouble() / 1024;
    }
    return 0;
}

struct Bench
{
    QTemporaryDir folder;
    SoundServer server;
    ConfigurationBlock config;
    ScriptedDialogs dialogs;
    QString wave;
    WavePlayer player{config, dialogs, {[this] { return wave; }, {}, {}, [] {}}, nullptr};
    MMControl &media = *player.findChild<MMControl *>();

    QString write(const char *name, const QByteArray &bytes)
    {
        QFile file(folder.filePath(QLatin1String(name)));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write");
        file.write(bytes);
        return file.fileName();
    }
};

void measureOpen(Bench &bench)
{
    QByteArray header = WaveBytes::wave(2, 44100, {});
    header.replace(40, 4, WaveBytes::number<quint32>(0xffffff00));
    bench.wave = bench.write("huge.wav", header);
    QFile::resize(bench.wave, 44 + 0xffffff00LL);
    const double before = residentMegabytes();
    QElapsedTimer clock;
    clock.start();
    bench.player.openNewWave();
    std::printf("open 4 GB                %8.1f ms\n", double(clock.nsecsElapsed()) / 1e6);
    double longest = 0; // between two turns of the event loop while the outline is read
    for (int turn = 0; turn < 400; ++turn) {
        clock.start();
        QTest::qWait(5);
        longest = std::max(longest, double(clock.nsecsElapsed()) / 1e6 - 5);
    }
    std::printf("longest wait of a key    %8.1f ms while its outline is read\n", longest);
    std::printf("memory for it            %8.1f MB\n", residentMegabytes() - before);
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
    bench.wave = bench.write("timed.wav", TimedSound::wave(12'000));
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
    std::printf("from Play to sound       %8.1f ms median, %.1f at most, recorder included\n",
                starts[starts.size() / 2], starts.back());
    std::printf("position less recording  %8.1f ms median, %.1f to %.1f for 90 %% of %d\n",
                part(0.5), part(0.05), part(0.95), int(differences.size()));
}

void measureCost(Bench &bench)
{
    bench.server.waitForSilence();
    bench.media.SetFrom(0);
    const double memory = residentMegabytes();
    const double idleStart = processMilliseconds();
    QTest::qWait(3000);
    const double idle = processMilliseconds() - idleStart;
    const double start = processMilliseconds();
    bench.media.SetCommand(QStringLiteral("Play"));
    QTest::qWait(6000);
    const double cost = processMilliseconds() - start;
    std::printf("playing costs            %8.2f %% of a core (recording idle: %.2f %%)\n",
                cost / 60, idle / 30);
    std::printf("memory for playing       %8.1f MB\n", residentMegabytes() - memory);
    bench.media.SetCommand(QStringLiteral("Stop"));
}

} // namespace

int main(int argc, char **argv)
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
