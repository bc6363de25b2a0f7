#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

namespace ardiphon {

/// The toolkit's connections to the sound server. When the server ends, the toolkit looks for it
/// once, three seconds later, and never again; this object replaces that and connects when a sound
/// is to be played. It finds the toolkit's objects by their names: where these differ, it does
/// nothing.
class SoundConnection : public QObject
{
public:
    /// The program's own, made at the first call, which has to come before the first sound.
    static SoundConnection &ofProgram();

    /// Connects again what has lost the server. To be called when there is a server.
    void restore();
    /// To be called when a sound could not begin: the server may have ended while it was connected.
    void checkServer();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit SoundConnection(QObject *parent);

    /// The toolkit's objects with a connection of their own; known once they have lost it.
    QList<QPointer<QObject>> m_engines;
    QList<QPointer<QObject>> m_lost; ///< those of them that have no server now
};

} // namespace ardiphon
