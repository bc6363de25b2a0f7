#include "documents/ui/FocusedWheel.h"

#include "app/ConfigurationBlock.h"
#include "language/editor/LEditOCX.h"
#include "workbench/ui/FeatureHost.h"

#include <QMainWindow>
#include <QWheelEvent>

namespace ardiphon {

FocusedWheel::FocusedWheel(FeatureHost &host) : QObject(&host.owner()), m_host(host)
{
    host.owner().installEventFilter(this);
}

bool FocusedWheel::eventFilter(QObject *window, QEvent *event)
{
    if (event->type() == QEvent::Wheel)
        return scroll(*static_cast<QWheelEvent *>(event));
    return QObject::eventFilter(window, event);
}

/// Scrolls the view that has the focus; false when none has it.
bool FocusedWheel::scroll(QWheelEvent &event)
{
    LEditOCX *const editor = m_host.focusedEditor();
    const int delta = event.angleDelta().y();
    if (!editor || delta == 0)
        return false;
    event.accept();
    if (const int notches = m_notches.turn(delta))
        editor->ScrollRows(-notches * m_host.config().WheelLinesCount);
    return true;
}

} // namespace ardiphon
