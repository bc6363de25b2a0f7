#pragma once

#include "platform/Terminal.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>

class QSocketNotifier;

namespace ardiphon {

/// A program that runs in a terminal window of its own and whose end is reported. It is ended with
/// all that it has started when this object is destroyed, this process ends, or the window is
/// closed. The window of a program that has ended by itself stays open until a key is pressed.
class TerminalRun : public QObject
{
    Q_OBJECT

public:
    explicit TerminalRun(QObject *parent = nullptr);
    ~TerminalRun() override;

    /// Starts \a command, once for each object, by the `ArdiphonConsole` in \a programFolder, with
    /// at most \a limit for the terminal to open its window. False when there is no terminal; then
    /// nothing was started.
    bool start(const ProgramCommand &command, const QString &programFolder,
               std::chrono::milliseconds limit);

    /// Ends the program and closes its window; ended() follows.
    void stop();

signals:
    void ended();
    /// The program could not be started.
    void failed();
    /// The terminal did not open its window in time, or not before stop(); nothing is running.
    void windowNotOpened();

private:
    bool listen();
    bool accept();
    void readNews();
    void giveUp();
    void closeSocket();

    int m_socket = -1; ///< listens, and later is the connection
    std::unique_ptr<QSocketNotifier> m_news;
    QTimer m_patience;
    QString m_name;
};

} // namespace ardiphon
