#pragma once

#include "platform/OutputLines.h"
#include "platform/ProgramCommand.h"

#include <QObject>

#include <memory>

namespace ardiphon {

struct Pipe;

/// The standard streams of a program without a window.
struct GuardedStreams
{
    enum class Output {
        Discarded,
        Ours, ///< it prints where this program does
        Read, ///< each channel is told by itself
        ReadTogether
    };
    Output output = Output::Discarded;
    bool input = false; ///< whether write() has a reader; else there is nothing to read
};

/// A program without a window, with all that it starts in turn. Nothing of that outlives this
/// object or this process. Nothing here blocks the caller, and all but start() happens from the
/// event loop.
class GuardedRun : public QObject
{
    Q_OBJECT

public:
    explicit GuardedRun(QObject *parent = nullptr);
    ~GuardedRun() override;

    /// Starts \a command, whose executable is an absolute path, once for each object. False when
    /// the system has no room for that; otherwise either failed() or ended() follows.
    bool start(const ProgramCommand &command, const GuardedStreams &streams);

    /// Kills all of it; ended() follows when that is dead, and nothing is printed any more.
    void stop();

    /// Hands \a bytes to the program's standard input, which takes them when it can. False when it
    /// has none, or none any more.
    [[nodiscard]] bool write(const QByteArray &bytes);
    /// The input ends behind what was written.
    void closeInput();
    /// How many bytes were written and not taken yet.
    qint64 unwritten() const;

signals:
    void started();
    void failed();
    /// Of what the program prints no more is read than is told here.
    void printed(ardiphon::OutputChannel channel, const QByteArray &bytes);
    /// All that was written has been taken.
    void inputTaken();
    /// All is dead, and all that it has printed was told.
    void ended();

private:
    struct Pipes;

    void listen(OutputChannel channel, Pipe &pipe);
    void readNews();
    void readOutput(OutputChannel channel);
    void tellStarted();
    void finish();

    std::unique_ptr<Pipes> m_pipes;
    bool m_started = false;
};

} // namespace ardiphon
