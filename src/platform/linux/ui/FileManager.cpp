#include "platform/ui/FileManager.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QUrl>

namespace ardiphon {

void askForProperties(QObject *asker, const QString &path, const std::function<void()> &refused)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return refused();

    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItemProperties"));
    call << QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)} << QString();
    auto *reply = new QDBusPendingCallWatcher(bus.asyncCall(call), asker);
    QObject::connect(reply, &QDBusPendingCallWatcher::finished, asker, [refused, reply] {
        reply->deleteLater();
        if (reply->isError())
            refused();
    });
}

} // namespace ardiphon
