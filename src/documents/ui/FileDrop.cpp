#include "documents/ui/FileDrop.h"

#include "platform/Dialogs.h"
#include "platform/FileName.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace ardiphon {

namespace {

/// The first local file of a drop; a URL without a path when there is none.
QUrl droppedFile(const QMimeData &data)
{
    for (const QUrl &url : data.urls())
        if (url.isLocalFile())
            return url;
    return {};
}

QByteArray nativePath(const QUrl &url)
{
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
}

/// A program may delete what is moved from it, so a file that is opened is taken as a copy.
void acceptCopy(QDropEvent &event)
{
    if (event.possibleActions() & Qt::CopyAction)
        event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

FileDrop::FileDrop(QWidget &window, Dialogs &dialogs) : QObject(&window), m_dialogs(dialogs)
{
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool FileDrop::eventFilter(QObject *window, QEvent *event)
{
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::Drop)
        return QObject::eventFilter(window, event);
    auto &drop = *static_cast<QDropEvent *>(event);
    const QUrl file = droppedFile(*drop.mimeData());
    if (file.isEmpty())
        return QObject::eventFilter(window, event);
    acceptCopy(drop);
    if (event->type() == QEvent::Drop)
        take(nativePath(file), file.toLocalFile());
    return true;
}

void FileDrop::take(const QByteArray &nativePath, const QString &path)
{
    if (isNamable(nativePath))
        emit dropped(path);
    else
        m_dialogs.message({brokenNameText(path)});
}

} // namespace ardiphon
