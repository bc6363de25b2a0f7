#pragma once

#include <QIcon>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>

class QToolButton;

namespace ardiphon {

class SoundFile;
class SoundOutput;

/// Plays a sound file: a panel of the buttons Prev, Play and Stop, which code can control too.
/// Times are in milliseconds. A command that cannot be carried out does nothing.
class MMControl : public QWidget
{
    Q_OBJECT

public:
    /// The values of Mode().
    enum : int { NotOpen = 524, Stopped = 525, Playing = 526 };
    /// The values of Done().
    enum : int { Successful = 1, Aborted = 4, Failed = 8 };

    struct Icons
    {
        QIcon prev, play, stop;
    };

    MMControl(const Icons &icons, QWidget *parent);
    ~MMControl() override;

    /// The file that the next "Open" opens.
    void SetFileName(const QString &path) { m_fileName = path; }
    /// Carries out one of these commands; other words do nothing:
    ///   "Open"   the file, in place of the one that was open
    ///   "Close"
    ///   "Play"   from the start point, else from the position, to the end; goes on if playing
    ///   "Prev"   to the beginning; if playing, goes on from there
    ///   "Stop"   stops and stays at the position
    void SetCommand(const QString &command);

    int Mode() const;
    /// Why the last "Open" opened nothing; "" when it did.
    const QString &ErrorMessage() const { return m_error; }
    int Length() const;   ///< 0 when no file is open
    int Position() const; ///< what is heard now
    /// Sets the start point of the next "Play" only, limited to the length of the file.
    void SetFrom(int milliseconds);

signals:
    /// A play ended: Successful at the end of the file, Aborted by a command, Failed when the
    /// device was lost.
    void Done(int notifyCode);
    /// A button was pressed; what it does happens afterwards.
    void PlayClick();
    void PrevClick();
    void StopClick();
    /// Emitted about 20 times a second while a file plays.
    void StatusUpdate();
    /// "Play" was asked for or under way and there is no sound device for it.
    void DeviceMissing();

private:
    QToolButton *addButton(const char *name, const QString &toolTip, const QIcon &icon);
    void open();
    void close();
    void play();
    void prev();
    void stop();
    void startAt(qint64 frame);
    void endPlay(int notifyCode);
    void tick();
    qint64 currentFrame() const;
    void enableButtons();

    QString m_fileName;
    QString m_error;
    std::unique_ptr<SoundFile> m_file;
    std::unique_ptr<SoundOutput> m_output; ///< while it plays
    qint64 m_frame = 0;                    ///< the position while nothing plays
    std::optional<int> m_from;
    QTimer m_ticks{this};
    QToolButton *m_prev;
    QToolButton *m_play;
    QToolButton *m_stop;
};

} // namespace ardiphon
