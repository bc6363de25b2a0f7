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
        Ours, ///< it prints where this program prints
        Read, ///< each channel is reported separately
        ReadTogether
    };
    Output output = Output::Discarded;
    bool input = false; ///< whether write() will be used; else the input is empty
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
    /// the system has no resources for that; otherwise either failed() or ended() follows.
    bool start(const ProgramCommand &command, const GuardedStreams &streams);

    /// Kills the program and all that it has started; ended() follows when all is dead, and
    /// printed() is not emitted any more.
    void stop();

    /// Writes \a bytes to the program's standard input, from the event loop, as it is read. False
    /// when the program has no input, or its input is closed.
    [[nodiscard]] bool write(const QByteArray &bytes);
    /// Closes the input after what was written.
    void closeInput();
    /// How many bytes were written and are still kept here.
    qint64 unwritten() const;

signals:
    void started();
    void failed();
    /// What the program has printed; nothing more is read before the slots return.
    void printed(ardiphon::OutputChannel channel, const QByteArray &bytes);
    /// The program's input has taken all that was written.
    void inputWritten();
    /// The program and all that it has started are dead, and all that they printed was reported.
    void ended();

private:
    struct Pipes;

    void listen(OutputChannel channel, Pipe &pipe);
    void readNews();
    void readOutput(OutputChannel channel);
    void reportStarted();
    void finish();

    std::unique_ptr<Pipes> m_pipes;
    bool m_started = false;
};

} // namespace ardiphon
