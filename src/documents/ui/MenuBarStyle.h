#pragma once

#include <QProxyStyle>

namespace ardiphon {

/// Draws the title in a menu bar that has the keyboard like that of an open menu. Most styles show
/// nothing there, and a user who pressed Alt would not see where the keys go.
class MenuBarStyle : public QProxyStyle
{
    Q_OBJECT

public:
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
};

} // namespace ardiphon
