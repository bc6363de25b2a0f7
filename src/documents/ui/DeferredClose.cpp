#include "documents/ui/DeferredClose.h"

#include <QCloseEvent>
#include <QThread>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace ardiphon {

namespace {

constexpr int Pause = 10; // milliseconds until the next attempt
constexpr int ProgramsOwnLoop = 1;

} // namespace

DeferredClose::DeferredClose(QWidget &window) : QObject(&window), m_window(window)
{
    window.installEventFilter(this);
}

bool DeferredClose::takeByUser(const QCloseEvent &event)
{
    return std::exchange(m_byUser, false) || event.spontaneous();
}

bool DeferredClose::eventFilter(QObject *window, QEvent *event)
{
    if (event->type() != QEvent::Close || thread()->loopLevel() <= ProgramsOwnLoop)
        return QObject::eventFilter(window, event);
    event->ignore();
    m_byUser |= event->spontaneous();
    QTimer::singleShot(Pause, &m_window, &QWidget::close);
    return true;
}

} // namespace ardiphon
