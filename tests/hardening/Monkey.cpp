#include "hardening/Monkey.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDialog>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>

namespace {

constexpr const char *Texts[] = {
    "instr 1\r",
    "endin\r",
    "asig oscil 10000, 440, 1\r",
    "\"text ",
    "/* ",
    "*/",
    "; comment\r",
    "#define A # 1 #\r",
    "$A.",
    "i1 0 1\r",
    "0",
    "12",
    "-3.5",
    "999999",
    "abc",
    "<CsScore>\r",
    "\t",
};
constexpr Qt::Key Keys[] = {
    Qt::Key_Return, Qt::Key_Tab,    Qt::Key_Backtab,  Qt::Key_Backspace, Qt::Key_Delete,
    Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Up,       Qt::Key_Down,      Qt::Key_Home,
    Qt::Key_End,    Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Escape,    Qt::Key_Space,
    Qt::Key_F1,     Qt::Key_F2,     Qt::Key_F3,       Qt::Key_F4,        Qt::Key_F5,
    Qt::Key_F6,     Qt::Key_F7,     Qt::Key_F8,       Qt::Key_F9,        Qt::Key_F10,
    Qt::Key_F11,    Qt::Key_F12,    Qt::Key_Insert,   Qt::Key_Menu,      Qt::Key_Alt,
};
constexpr Qt::KeyboardModifiers Modifiers[] = {
    Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier,
};

QString nameOf(const QWidget &widget)
{
    return QLatin1String(widget.metaObject()->className()) + u' ' + widget.objectName();
}

QList<QWidget *> visibleWindows()
{
    QList<QWidget *> windows;
    for (QWidget *each : QApplication::topLevelWidgets())
        if (each->isVisible() && each->windowType() != Qt::ToolTip)
            windows.append(each);
    // Their own order is that of their addresses.
    std::stable_sort(windows.begin(), windows.end(),
                     [](const QWidget *a, const QWidget *b) { return nameOf(*a) < nameOf(*b); });
    return windows;
}

/// Closes as the window manager does.
void closeFromOutside(QWidget &window)
{
    QCloseEvent event;
    QSpontaneKeyEvent::setSpontaneous(&event);
    QObject *receiver = &window;
    if (window.windowHandle())
        receiver = window.windowHandle();
    qApp->notify(receiver, &event);
}

} // namespace

QWidget *Monkey::front()
{
    if (QWidget *popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    const QList<QWidget *> windows = visibleWindows();
    return windows.isEmpty() ? nullptr : m_dice.pick(windows);
}

/// A control of the window that a mouse could reach, more often than not one that does something
/// when it is clicked; else the window.
QWidget *Monkey::target(QWidget &window)
{
    QList<QWidget *> controls;
    const bool active = m_dice.chance(60);
    for (QWidget *each : window.findChildren<QWidget *>())
        if (each->isVisible() && each->window() == &window && !each->size().isEmpty() &&
            (!active || each->focusPolicy() != Qt::NoFocus ||
             qobject_cast<QAbstractButton *>(each)))
            controls.append(each);
    return controls.isEmpty() ? &window : m_dice.pick(controls);
}

QString Monkey::act()
{
    QWidget *const window = front();
    if (!window)
        return QStringLiteral("no window");
    ++m_windowsMet[QLatin1String(window->metaObject()->className())];
    if (window->windowType() == Qt::Popup)
        return choosePopup(*window);
    if (window->isModal() && m_dice.chance(6)) // there is little to do in most of them
        return close(*window);
    const int what = m_dice.roll(100);
    if (what < 19)
        return triggerAction(*window);
    if (what < 22)
        return saveAndRun(*window);
    if (what < 48)
        return click(*window);
    if (what < 70)
        return press(*window);
    if (what < 80)
        return type(*window);
    if (what < 84)
        return turnWheel(*window);
    if (what < 88)
        return drop(*window);
    if (what < 92)
        return reshape(*window);
    if (what < 94)
        return close(*window);
    if (what < 96) {
        QApplication::clipboard()->setText(QString::fromLatin1(m_dice.pick(Texts)));
        return QStringLiteral("clipboard");
    }
    if (what < 98) {
        m_playground.changeStandIn();
        return QStringLiteral("another stand-in");
    }
    m_playground.meddle();
    return QStringLiteral("meddle with a file");
}

QString Monkey::choosePopup(QWidget &popup)
{
    auto *menu = qobject_cast<QMenu *>(&popup);
    if (!menu || menu->actions().isEmpty() || m_dice.chance(30)) {
        QTest::keyClick(&popup, Qt::Key_Escape);
        return QStringLiteral("leave a popup");
    }
    QAction *chosen = m_dice.pick(menu->actions());
    const QString told = QStringLiteral("menu entry ") + chosen->text();
    menu->setActiveAction(chosen);
    QTest::keyClick(menu, Qt::Key_Return);
    return told;
}

QString Monkey::triggerAction(QWidget &window)
{
    QList<QAction *> actions;
    for (QAction *each : window.findChildren<QAction *>())
        if (each->isEnabled() && each->isVisible() && !each->isSeparator() && !each->menu())
            actions.append(each);
    if (actions.isEmpty())
        return click(window);
    QAction *chosen = m_dice.pick(actions);
    const QString told = QStringLiteral("action %1 %2").arg(chosen->objectName(), chosen->text());
    chosen->trigger();
    return told;
}

/// Only what is saved can be compiled, and chance alone hardly ever leaves a text so.
QString Monkey::saveAndRun(QWidget &window)
{
    const QPointer<QWidget> pressed = &window;
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    constexpr const char *compilers[] = {"menuCSound", "menuToolsWinsound", "menuCSoundAV"};
    const char *chosen = m_dice.pick(compilers);
    if (auto *action = pressed ? pressed->findChild<QAction *>(QLatin1String(chosen)) : nullptr)
        action->trigger();
    return QStringLiteral("save and ") + QLatin1String(chosen);
}

QString Monkey::click(QWidget &window)
{
    const QPointer<QWidget> control = target(window);
    const QString told = QStringLiteral("click on ") + nameOf(*control);
    const QPoint at(m_dice.roll(control->width()), m_dice.roll(control->height()));
    const QPoint to(m_dice.roll(control->width()), m_dice.roll(control->height()));
    const Qt::MouseButton button = m_dice.chance(80) ? Qt::LeftButton : Qt::RightButton;
    const Qt::KeyboardModifiers modifiers = m_dice.pick(Modifiers);
    const int kind = m_dice.roll(10);
    QTest::mousePress(control.data(), button, modifiers, at);
    if (control && kind == 0)
        QTest::mouseMove(control.data(), to);
    if (control)
        QTest::mouseRelease(control.data(), button, modifiers, kind == 0 ? to : at);
    if (control && kind == 1)
        QTest::mouseDClick(control.data(), button, modifiers, at);
    return told;
}

QString Monkey::press(QWidget &window)
{
    QWidget *receiver = window.focusWidget() ? window.focusWidget() : &window;
    const QString told = QStringLiteral("key in ") + nameOf(*receiver);
    const bool named = m_dice.chance(50);
    const auto key = named ? m_dice.pick(Keys) : Qt::Key(Qt::Key_0 + m_dice.roll(43));
    QTest::keyClick(receiver, key, m_dice.pick(Modifiers));
    return told + QStringLiteral(" 0x%1").arg(int(key), 0, 16);
}

QString Monkey::type(QWidget &window)
{
    QPointer<QWidget> receiver = window.focusWidget() ? window.focusWidget() : &window;
    const QString told = QStringLiteral("text in ") + nameOf(*receiver);
    for (const char *at = m_dice.pick(Texts); *at && receiver && receiver->isVisible(); ++at)
        QTest::keyClick(receiver.data(), *at);
    return told;
}

QString Monkey::turnWheel(QWidget &window)
{
    QWidget *control = target(window);
    const QPointF at(control->rect().center());
    const QPoint notch(0, m_dice.chance(50) ? 120 : -120);
    QWheelEvent event(at, control->mapToGlobal(at), {}, notch, Qt::NoButton, m_dice.pick(Modifiers),
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(control, &event);
    return QStringLiteral("wheel on ") + nameOf(*control);
}

QString Monkey::drop(QWidget &window)
{
    const QString path = m_playground.openable();
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(path), QUrl::fromLocalFile(m_playground.openable())});
    QList<QWidget *> takers = window.findChildren<QWidget *>();
    takers.append(&window);
    takers.removeIf([](const QWidget *each) { return !each->acceptDrops() || !each->isVisible(); });
    if (takers.isEmpty())
        return click(window);
    const QPointer<QWidget> taker = m_dice.pick(takers);
    const QPoint at(taker->rect().center());
    QDragEnterEvent enter(at, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(taker, &enter);
    QDropEvent event(at, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    if (taker)
        QApplication::sendEvent(taker, &event);
    return QStringLiteral("drop of ") + path;
}

QString Monkey::reshape(QWidget &window)
{
    switch (m_dice.roll(4)) {
    case 0:
        window.setWindowState(window.windowState() ^ Qt::WindowMaximized);
        break;
    case 1:
        window.move(m_dice.roll(400) - 100, m_dice.roll(300) - 50);
        break;
    default:
        window.resize(100 + m_dice.roll(1400), 100 + m_dice.roll(900));
        break;
    }
    return QStringLiteral("reshape ") + nameOf(window);
}

QString Monkey::close(QWidget &window)
{
    const QString told = QStringLiteral("close ") + nameOf(window);
    closeFromOutside(window);
    return told;
}

bool Monkey::closeSomething()
{
    if (QWidget *popup = QApplication::activePopupWidget()) {
        popup->close();
        return true;
    }
    if (QWidget *modal = QApplication::activeModalWidget()) {
        closeFromOutside(*modal);
        return true;
    }
    const QList<QWidget *> windows = visibleWindows();
    for (QWidget *window : windows)
        closeFromOutside(*window);
    return !windows.isEmpty();
}
