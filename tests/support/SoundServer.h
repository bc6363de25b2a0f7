#pragma once

#include <QList>
#include <QProcess>
#include <QTemporaryDir>

/// A PulseAudio server of a test's own with one silent sink, whose sound is recorded. It knows
/// nothing of the system's sound, and nothing of it is left behind.
class SoundServer
{
public:
    /// Points this process at a server that doesn't run yet. To be called before the first sound.
    SoundServer();
    ~SoundServer();

    /// Starts the server and the recording. "" or what went wrong.
    QString start();
    void stop();

    /// 44,100 frames a second.
    struct Frame
    {
        qint16 left;
        qint16 right;
        bool isSilent() const { return left == 0 && right == 0; }
    };
    /// Waits until nothing sounds any more, and drops what was heard. False when it sounds on.
    bool waitForSilence();
    /// What was heard since start() or the last call.
    QList<Frame> takeRecording();

private:
    bool waitForCommand(const QStringList &arguments);
    /// Anew: nothing of before is heard. "" or what went wrong.
    QString startRecording();

    QTemporaryDir m_folder;
    QProcess m_server;
    QProcess m_recorder;
    QByteArray m_rest; ///< of a frame that is not complete yet
};
