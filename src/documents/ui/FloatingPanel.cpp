#include "documents/ui/FloatingPanel.h"

#include <QMouseEvent>
#include <QWidget>

namespace ardiphon {

FloatingPanel::FloatingPanel(QWidget &panel, QWidget &grip) : QObject(&panel), m_panel(panel)
{
    grip.setCursor(Qt::SizeAllCursor);
    grip.installEventFilter(this);
    m_panel.hide();
}

bool FloatingPanel::isShown() const { return !m_panel.isHidden(); }

void FloatingPanel::hide() { m_panel.hide(); }

void FloatingPanel::showAt(QPoint topLeft)
{
    m_panel.move(topLeft);
    m_panel.show();
    m_panel.raise();
}

bool FloatingPanel::eventFilter(QObject *grip, QEvent *event)
{
    const bool press = event->type() == QEvent::MouseButtonPress;
    if (!press && event->type() != QEvent::MouseMove)
        return QObject::eventFilter(grip, event);
    const auto *mouse = static_cast<QMouseEvent *>(event);
    const QPoint at = mouse->globalPosition().toPoint();
    if (!(mouse->buttons() & Qt::LeftButton))
        return false;
    if (press)
        m_grab = at - m_panel.pos();
    else
        m_panel.move(at - m_grab);
    return true;
}

} // namespace ardiphon
