#include "platform/ui/WheelGuard.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QScrollBar>

namespace ardiphon {

namespace {

/// Whether turning the wheel changes the value of \a object.
bool hasValue(const QObject *object)
{
    return qobject_cast<const QComboBox *>(object) ||
           qobject_cast<const QAbstractSpinBox *>(object) ||
           (qobject_cast<const QAbstractSlider *>(object) &&
            !qobject_cast<const QScrollBar *>(object));
}

} // namespace

bool WheelGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel && event->type() != QEvent::Polish)
        return false;
    if (!hasValue(watched))
        return false;
    auto *const box = static_cast<QWidget *>(watched);
    if (event->type() == QEvent::Polish) {
        if (box->focusPolicy() == Qt::WheelFocus)
            box->setFocusPolicy(Qt::StrongFocus);
        return false;
    }
    if (box->hasFocus())
        return false;
    event->ignore(); // so that it goes on to the parent
    return true;
}

} // namespace ardiphon
