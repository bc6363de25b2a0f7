#include "audio/ui/FormPlayer.h"

#include "app/ui/PathLabel.h"
#include "audio/ui/WavePlayer.h"
#include "platform/Dialogs.h"

#include <QBoxLayout>
#include <QDir>
#include <QPushButton>

namespace ardiphon {

FormPlayer::FormPlayer(const ConfigurationBlock &config, Dialogs &dialogs, QWidget *owner)
    : QDialog(owner), m_dialogs(dialogs)
{
    setObjectName(QStringLiteral("FormPlayer"));
    setWindowTitle(QStringLiteral("Wave Player"));
    Wave = new PathLabel(QStringLiteral("Wave"), this);
    Command2 = addButton("Command2", QStringLiteral("&Open Wave"));
    Command1 = addButton("Command1", QStringLiteral("E&xit"));
    const WavePlayerHost host{[this] { return Wave->text(); },
                              QStringLiteral("No wave file!"),
                              {Command2},
                              [this] { close(); }};
    m_player = new WavePlayer(config, dialogs, host, this);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(Command2);
    buttons->addStretch();
    buttons->addWidget(Command1);
    auto *all = new QVBoxLayout(this);
    all->addWidget(Wave);
    all->addWidget(m_player, 1);
    all->addLayout(buttons);
    connect(Command2, &QPushButton::clicked, this, &FormPlayer::chooseWave);
    connect(Command1, &QPushButton::clicked, this, &QWidget::close);
    Command2->setFocus();
    resize(480, sizeHint().height());
}

QPushButton *FormPlayer::addButton(const char *name, const QString &caption)
{
    auto *button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

void FormPlayer::chooseWave()
{
    FileQuestion question{QStringLiteral("Open Wave File (*.WAV)"),
                          QStringLiteral("Wave files |*.wav"), QDir::currentPath()};
    question.mustExist = false; // the player says when it finds no file
    const auto path = m_dialogs.openFile(question);
    if (!path)
        return;
    Wave->showPath(*path);
    m_player->openNewWave();
}

void FormPlayer::done(int result)
{
    m_player->closeWave();
    QDialog::done(result);
}

} // namespace ardiphon
