#include "language/editor/PlainAccessible.h"

#include "language/editor/TextView.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>

namespace ardiphon {

namespace {

// Asked first with a view's own class; without an answer the library is asked with its base class.
QAccessibleInterface *plainInterface(const QString &className, QObject *object)
{
    if (QAccessible::isActive() ||
        className != QLatin1String(TextView::staticMetaObject.className()))
        return nullptr;
    return new QAccessibleWidget(qobject_cast<QWidget *>(object), QAccessible::EditableText);
}

// Views that were asked for their interface keep it, so it is dropped when the other kind is
// wanted.
class InterfaceChanger : public QAccessible::ActivationObserver
{
public:
    InterfaceChanger() { QAccessible::installActivationObserver(this); }
    ~InterfaceChanger() { QAccessible::removeActivationObserver(this); }

    void accessibilityActiveChanged(bool) override
    {
        for (QWidget *widget : QApplication::allWidgets()) {
            if (!qobject_cast<TextView *>(widget))
                continue;
            if (auto *present = QAccessible::queryAccessibleInterface(widget))
                QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(present));
        }
    }
};

} // namespace

void installPlainAccessible()
{
    static const InterfaceChanger changer;
    QAccessible::installFactory(plainInterface);
}

} // namespace ardiphon
