#include "support/SoundServer.h"

#include <QElapsedTimer>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <sys/prctl.h>

SoundServer::SoundServer()
{
    const QByteArray folder = m_folder.path().toLocal8Bit();
    qputenv("PULSE_SERVER", "unix:" + folder + "/native");
    for (const char *variable : {"PULSE_RUNTIME_PATH", "PULSE_STATE_PATH", "XDG_RUNTIME_DIR"})
        qputenv(variable, folder);
    qunsetenv("PULSE_SINK");
    // Nor is it left behind by a test that crashes.
    m_server.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

SoundServer::~SoundServer() { stop(); }

QString SoundServer::start()
{
    m_server.setStandardOutputFile(QProcess::nullDevice());
    m_server.setStandardErrorFile(m_folder.filePath(QStringLiteral("server.log")));
    // A sink that takes back nothing has a short buffer, as a sound card has.
    m_server.start(
        QStringLiteral("pulseaudio"),
        {QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
         QStringLiteral("--use-pid-file=no"), QStringLiteral("--exit-idle-time=-1"),
         QStringLiteral("--disable-shm=yes"), QStringLiteral("-L"),
         QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=%1/native")
             .arg(m_folder.path()),
         QStringLiteral("-L"),
         QStringLiteral("module-null-sink sink_name=silent rate=44100 channels=2 norewinds=1")});
    if (!m_server.waitForStarted())
        return QStringLiteral("pulseaudio is needed for this test");
    if (!waitForCommand({QStringLiteral("info")}))
        return QStringLiteral("pulseaudio doesn't answer");
    return startRecording();
}

QString SoundServer::startRecording()
{
    m_recorder.kill();
    m_recorder.waitForFinished();
    m_rest.clear();
    m_recorder.setStandardErrorFile(QProcess::nullDevice());
    m_recorder.start(QStringLiteral("parec"),
                     {QStringLiteral("--device=silent.monitor"), QStringLiteral("--format=s16le"),
                      QStringLiteral("--rate=44100"), QStringLiteral("--channels=2"),
                      QStringLiteral("--latency-msec=20")});
    // The recording runs as soon as it brings silence.
    if (!m_recorder.waitForReadyRead(10'000))
        return QStringLiteral("the recording brings nothing");
    takeRecording();
    return {};
}

bool SoundServer::waitForCommand(const QStringList &arguments)
{
    QElapsedTimer clock;
    clock.start();
    while (!clock.hasExpired(20'000)) {
        QProcess pactl;
        pactl.setStandardErrorFile(QProcess::nullDevice());
        pactl.start(QStringLiteral("pactl"), arguments);
        if (pactl.waitForFinished() && pactl.exitCode() == 0)
            return true;
        QTest::qWait(50);
    }
    return false;
}

void SoundServer::stop()
{
    for (QProcess *process : {&m_recorder, &m_server}) {
        process->kill();
        process->waitForFinished();
    }
    m_rest.clear();
}

bool SoundServer::waitForSilence()
{
    if (m_recorder.state() == QProcess::NotRunning)
        return true;
    const auto nothingPlays = [] {
        QProcess pactl;
        pactl.start(QStringLiteral("pactl"), {QStringLiteral("list"), QStringLiteral("short"),
                                              QStringLiteral("sink-inputs")});
        return pactl.waitForFinished() && pactl.exitCode() == 0 &&
               pactl.readAllStandardOutput().isEmpty();
    };
    // A recorder that lags behind would bring the end of this sound to the next test.
    return QTest::qWaitFor(nothingPlays, 20'000) && startRecording().isEmpty();
}

QList<SoundServer::Frame> SoundServer::takeRecording()
{
    if (m_recorder.state() == QProcess::NotRunning)
        return {};
    m_rest += m_recorder.readAllStandardOutput();
    const qsizetype count = m_rest.size() / qsizetype(sizeof(Frame));
    QList<Frame> frames(count);
    std::copy_n(m_rest.constData(), count * qsizetype(sizeof(Frame)),
                reinterpret_cast<char *>(frames.data()));
    m_rest.remove(0, count * qsizetype(sizeof(Frame)));
    return frames;
}
