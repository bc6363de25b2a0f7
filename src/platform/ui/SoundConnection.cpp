#include "platform/ui/SoundConnection.h"

#include "platform/SoundServer.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace ardiphon {

namespace {

const QString Name = QStringLiteral("SoundConnection");

/// The timers that call something once, which the toolkit keeps below its event dispatcher.
QList<QObject *> singleShots()
{
    QList<QObject *> timers = QAbstractEventDispatcher::instance()->children();
    timers.removeIf([](const QObject *child) { return !child->inherits("QSingleShotTimer"); });
    return timers;
}

} // namespace

SoundConnection &SoundConnection::ofProgram()
{
    if (QObject *made = qApp->findChild<QObject *>(Name, Qt::FindDirectChildrenOnly))
        return *static_cast<SoundConnection *>(made);
    return *new SoundConnection(qApp);
}

SoundConnection::SoundConnection(QObject *parent) : QObject(parent)
{
    setObjectName(Name);
    parent->installEventFilter(this); // the application's: it sees every event
}

void SoundConnection::restore()
{
    for (const QPointer<QObject> &engine : std::exchange(m_lost, {}))
        if (engine)
            QMetaObject::invokeMethod(engine, "prepare", Qt::DirectConnection);
}

void SoundConnection::checkServer()
{
    if (!isSoundServerThere())
        m_lost = m_engines;
}

/// The engine learns of the server's end by a call from its thread, and sets up a timer for its one
/// attempt.
bool SoundConnection::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::MetaCall || !watched->inherits("QPulseAudioEngine"))
        return false;
    const QList<QObject *> before = singleShots();
    watched->event(event);
    QList<QObject *> attempts = singleShots();
    attempts.removeIf([&before](QObject *timer) { return before.contains(timer); });
    if (attempts.isEmpty())
        return true;
    qDeleteAll(attempts);
    for (QList<QPointer<QObject>> *list : {&m_engines, &m_lost})
        if (!list->contains(watched))
            list->append(watched);
    return true;
}

} // namespace ardiphon
