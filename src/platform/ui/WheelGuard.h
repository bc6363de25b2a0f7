#pragma once

#include <QObject>

namespace ardiphon {

/// Keeps the mouse wheel from changing a control that the pointer only passes over: a combo box,
/// spin box or slider takes it only while it has the focus, and the wheel gives none of them the
/// focus. The area around it scrolls instead. To be installed on the application, so that no window
/// is left out.
class WheelGuard : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace ardiphon
