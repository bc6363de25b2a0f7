#include "documents/ui/MenuBarStyle.h"

#include <QStyleOptionMenuItem>
#include <QWidget>

namespace ardiphon {

void MenuBarStyle::drawControl(ControlElement element, const QStyleOption *option,
                               QPainter *painter, const QWidget *widget) const
{
    const auto *title = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (element != CE_MenuBarItem || !title || !(title->state & State_Selected) || !widget ||
        !widget->hasFocus())
        return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionMenuItem reached(*title);
    reached.state |= State_Sunken;
    QProxyStyle::drawControl(element, &reached, painter, widget);
}

} // namespace ardiphon
