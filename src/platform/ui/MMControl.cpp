#include "platform/ui/MMControl.h"

#include "platform/ui/SoundFile.h"
#include "platform/ui/SoundOutput.h"

#include <QHBoxLayout>
#include <QToolButton>

#include <utility>

namespace ardiphon {

namespace {

constexpr int TickInterval = 50; // milliseconds

} // namespace

MMControl::MMControl(const Icons &icons, QWidget *parent) : QWidget(parent)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    m_prev = addButton("Prev", tr("Back to the beginning"), icons.prev);
    m_play = addButton("Play", tr("Play"), icons.play);
    m_stop = addButton("Stop", tr("Stop"), icons.stop);
    connect(m_prev, &QToolButton::clicked, this, [this] {
        emit PrevClick();
        prev();
    });
    connect(m_play, &QToolButton::clicked, this, [this] {
        emit PlayClick();
        play();
    });
    connect(m_stop, &QToolButton::clicked, this, [this] {
        emit StopClick();
        stop();
    });
    m_ticks.setInterval(TickInterval);
    m_ticks.setTimerType(Qt::PreciseTimer);
    connect(&m_ticks, &QTimer::timeout, this, &MMControl::tick);
    enableButtons();
}

MMControl::~MMControl() = default;

QToolButton *MMControl::addButton(const char *name, const QString &toolTip, const QIcon &icon)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    button->setIcon(icon);
    button->setIconSize({20, 20});
    button->setFocusPolicy(Qt::StrongFocus);
    layout()->addWidget(button);
    return button;
}

void MMControl::SetCommand(const QString &command)
{
    constexpr std::pair<const char *, void (MMControl::*)()> commands[] = {
        {"Open", &MMControl::open}, {"Close", &MMControl::close}, {"Play", &MMControl::play},
        {"Prev", &MMControl::prev}, {"Stop", &MMControl::stop},
    };
    for (const auto &[name, operation] : commands) {
        if (command == QLatin1String(name))
            (this->*operation)();
    }
}

int MMControl::Mode() const
{
    if (!m_file)
        return NotOpen;
    return m_output ? Playing : Stopped;
}

int MMControl::Length() const { return m_file ? m_file->milliseconds() : 0; }

int MMControl::Position() const { return m_file ? m_file->millisecondsAt(currentFrame()) : 0; }

qint64 MMControl::currentFrame() const { return m_output ? m_output->heardFrame() : m_frame; }

void MMControl::SetFrom(int milliseconds)
{
    m_from = milliseconds;
    enableButtons();
}

void MMControl::open()
{
    close();
    m_error.clear();
    m_file = SoundFile::open(m_fileName, &m_error);
    enableButtons();
}

void MMControl::close()
{
    stop();
    m_file.reset();
    m_frame = 0;
    m_from.reset();
    enableButtons();
}

void MMControl::play()
{
    if (!m_file || (m_output && !m_from))
        return;
    startAt(m_from ? m_file->frameAt(*m_from) : m_frame);
}

void MMControl::prev()
{
    m_from.reset();
    m_frame = 0;
    if (m_output)
        startAt(0);
    else
        enableButtons();
}

void MMControl::stop()
{
    if (m_output)
        endPlay(Aborted);
}

void MMControl::startAt(qint64 frame)
{
    m_output.reset(); // what was handed over already must not be heard any more
    m_from.reset();
    m_frame = frame;
    m_output = SoundOutput::start(*m_file, frame);
    if (!m_output) {
        endPlay(Failed);
        return;
    }
    m_ticks.start();
    enableButtons();
}

void MMControl::endPlay(int notifyCode)
{
    m_ticks.stop();
    m_frame = currentFrame();
    m_output.reset();
    enableButtons();
    emit Done(notifyCode);
    if (notifyCode == Failed)
        emit DeviceMissing();
}

void MMControl::tick()
{
    if (!m_output->feed())
        endPlay(Failed);
    else if (m_output->isOver())
        endPlay(Successful);
    else
        emit StatusUpdate();
}

/// A button that would change nothing is disabled. If it has the focus, the focus moves to its
/// counterpart; else the keyboard would do nothing.
void MMControl::enableButtons()
{
    const bool hadFocus = m_play->hasFocus() || m_stop->hasFocus();
    const int mode = Mode();
    m_play->setEnabled(mode == Stopped);
    m_stop->setEnabled(mode == Playing);
    m_prev->setEnabled(mode == Playing || (mode == Stopped && (m_frame > 0 || m_from)));
    if (hadFocus && mode != NotOpen)
        (mode == Playing ? m_stop : m_play)->setFocus();
}

} // namespace ardiphon
