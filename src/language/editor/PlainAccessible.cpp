#include "language/editor/PlainAccessible.h"

#include "language/editor/TextView.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>

namespace ardiphon {

namespace {

// Notes whether an assistive tool is connected. Views that were asked for their interface keep it,
// so it is dropped when the other kind is wanted.
class ToolWatcher : public QAccessible::ActivationObserver
{
public:
    ToolWatcher() { QAccessible::installActivationObserver(this); }
    ~ToolWatcher() override { QAccessible::removeActivationObserver(this); }

    bool toolConnected() const { return m_connected; }

    void accessibilityActiveChanged(bool connected) override
    {
        m_connected = connected;
        for (QWidget *widget : QApplication::allWidgets()) {
            if (!qobject_cast<TextView *>(widget))
                continue;
            if (auto *present = QAccessible::queryAccessibleInterface(widget))
                QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(present));
        }
    }

private:
    bool m_connected = QAccessible::isActive();
};

const ToolWatcher &toolWatcher()
{
    static const ToolWatcher watcher;
    return watcher;
}

// The toolkit asks here first with a view's own class; without an answer it asks the library with
// the base class.
QAccessibleInterface *plainInterface(const QString &className, QObject *object)
{
    if (className != QLatin1String(TextView::staticMetaObject.className()) ||
        toolWatcher().toolConnected())
        return nullptr;
    return new QAccessibleWidget(qobject_cast<QWidget *>(object), QAccessible::EditableText);
}

} // namespace

void installPlainAccessible()
{
    toolWatcher();
    QAccessible::installFactory(plainInterface);
}

} // namespace ardiphon
