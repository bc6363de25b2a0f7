#pragma once

#include "platform/Terminal.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>

class QSocketNotifier;

namespace ardiphon {

/// A program that runs in a terminal window of its own and that somebody waits for. It is ended
/// with all that it has started when this object or this process is gone, or when the window is
/// closed. The window of a program that has ended by itself stays open until a key is pressed.
class TerminalRun : public QObject
{
    Q_OBJECT

public:
    explicit TerminalRun(QObject *parent = nullptr);
    ~TerminalRun() override;

    /// Starts \a command, once for each object, by the `ArdiphonConsole` in \a programFolder, with
    /// \a limit for the terminal to open its window. False when there is no terminal: nothing was
    /// started then.
    bool start(const ProgramCommand &command, const QString &programFolder,
               std::chrono::milliseconds limit);

    /// Ends the program and closes its window; ended() follows.
    void stop();

signals:
    void ended();
    /// The program is not one that can run.
    void failed();
    /// The terminal did not open its window in time, or not before the stop; nothing runs.
    void missed();

private:
    bool listen();
    void accept();
    void readNews();
    void giveUp();
    void closeSocket();

    int m_socket = -1; ///< listens, and later is the connection
    std::unique_ptr<QSocketNotifier> m_news;
    QTimer m_patience;
    QString m_name;
};

} // namespace ardiphon
