#pragma once

#include <QDialog>

class QPushButton;

namespace ardiphon {

class Dialogs;
class PathLabel;
class WavePlayer;
struct ConfigurationBlock;

/// The window in which any wave file can be chosen and played.
class FormPlayer : public QDialog
{
    Q_OBJECT

public:
    FormPlayer(const ConfigurationBlock &config, Dialogs &dialogs, QWidget *owner);

    /// Every way of closing the window calls this; the sound ends.
    void done(int result) override;

private:
    QPushButton *addButton(const char *name, const QString &caption);
    void chooseWave();

    Dialogs &m_dialogs;
    PathLabel *Wave;
    QPushButton *Command2;
    QPushButton *Command1;
    WavePlayer *m_player;
};

} // namespace ardiphon
