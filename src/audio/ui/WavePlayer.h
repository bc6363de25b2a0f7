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

/// What a window tells the player that it holds.
struct WavePlayerHost
{
    std::function<QString()> wave;         ///< the path in the window's `Wave`
    QString noWaveMessage;                 ///< of "&Wave Editor" when that is empty
    QList<QWidget *> disabledWhilePlaying; ///< beside the player's own `EditorFileWave`
    std::function<void()> close;           ///< leaves the window
};

/// Plays one wave file: buttons, seek bar, times, the wave's outline, and a button that hands the
/// file to the user's wave editor. Its caption tells its state. It is a part of a window.
class WavePlayer : public QGroupBox
{
    Q_OBJECT

public:
    WavePlayer(const ConfigurationBlock &config, Dialogs &dialogs, WavePlayerHost host,
               QWidget *parent);

    /// Opens what `Wave` names. Nothing changes when there is no such file or it is empty.
    void OpenPlayerWave();
    /// Lets go of the file, so that others can write it; the times and the caption stay.
    void closeWave();
    /// Closes the file, sets everything back, and opens what `Wave` names now.
    void openNewWave();
    /// What a window whose `Wave` is known when it opens does then: opens it at its beginning.
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
