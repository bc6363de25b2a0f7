#include "documents/ui/MenuBarKeys.h"

#include "documents/ui/MenuBarStyle.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenuBar>

namespace ardiphon {

MenuBarKeys::MenuBarKeys(QMainWindow &window) : QObject(&window)
{
    auto *const style = new MenuBarStyle;
    style->setParent(window.menuBar());
    window.menuBar()->setStyle(style);
    window.installEventFilter(this);
}

/// The bar knows only Alt, which it follows in its window; the modifiers are those from before the
/// key.
bool MenuBarKeys::eventFilter(QObject *window, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(window, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_F10 || key->modifiers() != Qt::NoModifier)
        return QObject::eventFilter(window, event);
    QKeyEvent altDown(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::NoModifier);
    QKeyEvent altUp(QEvent::KeyRelease, Qt::Key_Alt, Qt::AltModifier);
    QCoreApplication::sendEvent(window, &altDown);
    QCoreApplication::sendEvent(window, &altUp);
    event->accept();
    return true;
}

} // namespace ardiphon
