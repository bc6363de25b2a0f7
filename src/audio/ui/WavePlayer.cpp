#include "audio/ui/WavePlayer.h"

#include "app/Blanks.h"
#include "app/ConfigurationBlock.h"
#include "app/ui/Icons.h"
#include "audio/WaveTexts.h"
#include "audio/ui/MySlider.h"
#include "audio/ui/WaveOutline.h"
#include "platform/Dialogs.h"
#include "platform/StartDetached.h"
#include "platform/ui/MMControl.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

#include <tuple>
#include <utility>

namespace ardiphon {

namespace {

const QString ReadyCaption = QStringLiteral("Wave Player - Ready");
const QString PlayingCaption = QStringLiteral("Wave Player - Playing");
const QString NoDeviceCaption = QStringLiteral("Wave Player - No sound device");

} // namespace

// Building. --------------------------------------------------------------------------------------

WavePlayer::WavePlayer(const ConfigurationBlock &config, Dialogs &dialogs, WavePlayerHost host,
                       QWidget *parent)
    : QGroupBox(QStringLiteral("Wave Player"), parent),
      m_config(config),
      m_dialogs(dialogs),
      m_host(std::move(host))
{
    setObjectName(QStringLiteral("Frame1"));
    TextTime = addLabel("TextTime", playTime(0));
    QFont large = TextTime->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    TextTime->setFont(large);
    Lbl_Durata = addLabel("Lbl_Durata", QStringLiteral("Total Time:"));
    Lbl_Durata->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Lbl_Durata->setMinimumHeight(2 * fontMetrics().lineSpacing()); // it becomes two lines
    MySlider1 = new MySlider(this);
    MySlider1->setObjectName(QStringLiteral("MySlider1"));
    MySlider1->setAccessibleName(tr("Play position"));
    MySlider1->SetMax(1);
    MySlider1->SetValue(0);
    m_outline = new WaveOutline(this);
    m_outline->setObjectName(QStringLiteral("WaveOutline"));

    auto *times = new QHBoxLayout;
    times->addWidget(TextTime);
    times->addWidget(Lbl_Durata, 1);
    auto *picture = new QHBoxLayout; // ends where the middle of the slider's thumb ends
    picture->setContentsMargins(MySlider::ThumbWidth / 2, 0, MySlider::ThumbWidth / 2, 0);
    picture->addWidget(m_outline);
    auto *all = new QVBoxLayout(this);
    all->addLayout(times);
    all->addWidget(MySlider1);
    all->addLayout(picture, 1);
    all->addLayout(buttonRow());
    bindControl();
    bindSlider();
}

QLabel *WavePlayer::addLabel(const char *name, const QString &text)
{
    auto *label = new QLabel(text, this);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLayout *WavePlayer::buttonRow()
{
    MMControl1 =
        new MMControl({programIcon(QStringLiteral("previous")), programIcon(QStringLiteral("play")),
                       programIcon(QStringLiteral("stop"))},
                      this);
    MMControl1->setObjectName(QStringLiteral("MMControl1"));
    EditorFileWave = new QPushButton(programIcon(QStringLiteral("wave-editor")),
                                     QStringLiteral("&Wave Editor"), this);
    EditorFileWave->setObjectName(QStringLiteral("EditorFileWave"));
    EditorFileWave->setAutoDefault(false);
    connect(EditorFileWave, &QPushButton::clicked, this, &WavePlayer::startWaveEditor);
    auto *row = new QHBoxLayout;
    row->addWidget(MMControl1);
    row->addStretch();
    row->addWidget(EditorFileWave);
    return row;
}

void WavePlayer::bindControl()
{
    connect(MMControl1, &MMControl::PlayClick, this, [this] {
        setPlaying(true);
        setTitle(PlayingCaption);
    });
    connect(MMControl1, &MMControl::StopClick, this, [this] {
        setPlaying(false);
        setTitle(ReadyCaption);
    });
    connect(MMControl1, &MMControl::PrevClick, this, &WavePlayer::rewind);
    connect(MMControl1, &MMControl::Done, this, &WavePlayer::notified);
    connect(MMControl1, &MMControl::DeviceMissing, this, [this] {
        setPlaying(false);
        setTitle(NoDeviceCaption);
    });
    connect(MMControl1, &MMControl::StatusUpdate, this, [this] {
        if (MMControl1->Mode() == MMControl::Playing)
            showPosition(MMControl1->Position());
    });
}

void WavePlayer::bindSlider()
{
    connect(MySlider1, &MySlider::MouseDown, this, [this] { PlayerMode = MMControl1->Mode(); });
    connect(MySlider1, &MySlider::Scroll, this, [this] { seekTo(MySlider1->Value()); });
    connect(MySlider1, &MySlider::MouseUp, this, [this] {
        if (PlayerMode == MMControl::Playing)
            MMControl1->SetCommand(QStringLiteral("Play"));
    });
    connect(MySlider1, &MySlider::Click, this, [this] { jumpTo(MySlider1->Value()); });
    connect(m_outline, &WaveOutline::pressed, this, [this](double place) {
        MySlider1->SetValue(qRound(place * MySlider1->Max()));
        jumpTo(MySlider1->Value());
    });
}

// The file. --------------------------------------------------------------------------------------

QString WavePlayer::wavePath() const { return withoutTrailingBlanks(m_host.wave()); }

void WavePlayer::OpenPlayerWave()
{
    const QFileInfo file(wavePath());
    if (!file.isFile() || file.size() <= 0)
        return;
    m_outline->clear(); // no other file is decoded while this one is opened
    MMControl1->SetFileName(file.filePath());
    MMControl1->SetCommand(QStringLiteral("Open"));
    PlayerLengthMs = MMControl1->Length();
    if (PlayerLengthMs > 1)
        MySlider1->SetMax(PlayerLengthMs);
    rewind();
    Lbl_Durata->setText(totalTime(PlayerLengthMs));
    setTitle(ReadyCaption);
    setPlaying(false); // for a sound that opening has stopped
    if (MMControl1->Mode() == MMControl::NotOpen)
        m_outline->say(tr("This file cannot be played.") + u'\n' + MMControl1->ErrorMessage());
    else
        m_outline->read(file.filePath());
}

void WavePlayer::closeWave()
{
    MMControl1->SetCommand(QStringLiteral("Close"));
    m_outline->clear();
}

void WavePlayer::openNewWave()
{
    closeWave();
    MySlider1->SetMax(1);
    rewind();
    OpenPlayerWave();
    const QFileInfo file(wavePath());
    if (!file.isFile())
        m_outline->say(tr("There is no such file."));
    else if (file.size() <= 0)
        m_outline->say(tr("This file is empty."));
}

void WavePlayer::openFirstWave()
{
    if (m_host.wave().isEmpty())
        return;
    OpenPlayerWave();
    MySlider1->SetValue(0);
}

// Playing and seeking. ---------------------------------------------------------------------------

void WavePlayer::setPlaying(bool playing)
{
    EditorFileWave->setEnabled(!playing);
    for (QWidget *control : m_host.disabledWhilePlaying)
        control->setEnabled(!playing);
}

void WavePlayer::rewind() { showPosition(0); }

void WavePlayer::showPosition(int milliseconds)
{
    MySlider1->SetValue(milliseconds);
    showTime(milliseconds);
}

void WavePlayer::showTime(int milliseconds)
{
    TextTime->setText(playTime(milliseconds));
    m_outline->setPosition(milliseconds, MySlider1->Max());
}

void WavePlayer::seekTo(int milliseconds)
{
    MMControl1->SetCommand(QStringLiteral("Stop"));
    MMControl1->SetFrom(milliseconds);
    showTime(milliseconds);
}

void WavePlayer::jumpTo(int milliseconds)
{
    PlayerMode = MMControl1->Mode();
    seekTo(milliseconds);
    if (PlayerMode == MMControl::Playing)
        MMControl1->SetCommand(QStringLiteral("Play"));
}

void WavePlayer::notified(int notifyCode)
{
    if (notifyCode != MMControl::Successful)
        return;
    MMControl1->SetCommand(QStringLiteral("Prev"));
    MMControl1->SetCommand(QStringLiteral("Stop"));
    rewind();
    setTitle(ReadyCaption);
    setPlaying(false);
}

// The wave editor. -------------------------------------------------------------------------------

void WavePlayer::startWaveEditor()
{
    if (m_config.WaveEditor.isEmpty()) {
        m_dialogs.message({QStringLiteral("No Wave Editor associated to program!\r\n"
                                          "Select File->Settings->Wave Editor")});
        return;
    }
    if (m_host.wave().isEmpty()) {
        m_dialogs.message({m_host.noWaveMessage});
        return;
    }
    if (!QFileInfo(wavePath()).isFile()) {
        m_dialogs.message({QStringLiteral("File not found!")});
        return;
    }
    // The user sees whether the editor's window opens; a failure is not reported.
    std::ignore = StartDetached(m_config.WaveEditor, {m_host.wave()}, QString());
    m_host.close();
}

} // namespace ardiphon
