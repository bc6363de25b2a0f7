#pragma once

#include <QGroupBox>

#include <functional>

class QLabel;
class QPushButton;

namespace ardiphon {

class Dialogs;
class MMControl;
class MySlider;
class WaveOutline;
struct ConfigurationBlock;

/// What the player gets from the window that it is a part of.
struct WavePlayerHost
{
    std::function<QString()> wave;         ///< the path in the window's `Wave`
    QString noWaveMessage;                 ///< the message of "&Wave Editor" when that is empty
    QList<QWidget *> disabledWhilePlaying; ///< beside the player's own `EditorFileWave`
    std::function<void()> close;           ///< closes the window
};

/// Plays one wave file: buttons, seek bar, times, the wave's outline, and a button that opens the
/// file in the user's wave editor. Its caption shows its state. It is a part of a window.
class WavePlayer : public QGroupBox
{
    Q_OBJECT

public:
    WavePlayer(const ConfigurationBlock &config, Dialogs &dialogs, WavePlayerHost host,
               QWidget *parent);

    /// Opens the file that `Wave` names. Nothing changes when it does not exist or is empty.
    void OpenPlayerWave();
    /// Closes the file, so that others can write it; the times and the caption stay.
    void closeWave();
    /// Closes the file, resets everything, and opens the file that `Wave` names now.
    void openNewWave();
    /// For a window whose `Wave` is known when it opens: opens the file at its beginning.
    void openFirstWave();

private:
    QLabel *addLabel(const char *name, const QString &text);
    QLayout *buttonRow();
    void bindControl();
    void bindSlider();
    QString wavePath() const;
    void setPlaying(bool playing);
    void rewind();
    void showPosition(int milliseconds);
    void showTime(int milliseconds);
    void seekTo(int milliseconds);
    void jumpTo(int milliseconds);
    void notified(int notifyCode);
    void startWaveEditor();

    const ConfigurationBlock &m_config;
    Dialogs &m_dialogs;
    const WavePlayerHost m_host;
    int PlayerLengthMs = 0;
    int PlayerMode = 0; ///< the control's mode when a seek began
    QLabel *TextTime = nullptr;
    QLabel *Lbl_Durata = nullptr;
    MySlider *MySlider1 = nullptr;
    WaveOutline *m_outline = nullptr;
    MMControl *MMControl1 = nullptr;
    QPushButton *EditorFileWave = nullptr;
};

} // namespace ardiphon
