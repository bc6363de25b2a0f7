#pragma once

#include "documents/Commands.h"
#include "documents/ui/EditorWindow.h"
#include "language/editor/EditorKeys.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QSet>
#include <QStringList>
#include <QTimer>
#include <QToolBar>
#include <QWidget>

/// What must hold for the commands of an editor window. Each gives the names of those for which it
/// does not.
namespace CommandChecks {

/// Commands that do not have exactly one handler, or another caption than their table's.
inline QStringList unbound(ardiphon::EditorWindow &window,
                           std::span<const ardiphon::Command> commands)
{
    QStringList found;
    for (const ardiphon::Command &command : commands) {
        const auto *shown = window.findChild<QAction *>(QLatin1String(command.name));
        const bool hasCaption =
            shown && shown->text().section(u'\t', 0, 0) == QLatin1String(command.caption);
        if (!hasCaption || window.commands().handlers(command.name) != 1)
            found.append(QLatin1String(command.name));
    }
    return found;
}

/// Keys whose command shows another text, or has another shortcut than theirs; keys for a view that
/// mean nothing there or have no handler, and keys for the editor that mean nothing to it.
inline QStringList wrongShortcuts(ardiphon::EditorWindow &window,
                                  std::span<const ardiphon::Shortcut> shortcuts)
{
    using namespace ardiphon;
    QStringList found;
    for (const Shortcut &row : shortcuts) {
        const QKeySequence key(QLatin1String(row.key));
        const bool isWindows = row.taker == KeyTaker::Window;
        bool isRight = !key.isEmpty();
        if (*row.command) {
            const auto *command = window.findChild<QAction *>(QLatin1String(row.command));
            isRight &= command && command->text().section(u'\t', 1) == QLatin1String(row.text) &&
                       command->shortcut() == (isWindows ? key : QKeySequence());
        }
        const QKeyCombination pressed = key[0];
        if (row.taker == KeyTaker::View) {
            const auto isHandled = [&](ViewPosition position) {
                return window.keys().isBound(window.keys().meaning(
                    pressed.key(), shiftState(pressed.keyboardModifiers()), position));
            };
            isRight &= isHandled(ViewPosition::First) || isHandled(ViewPosition::Second);
        }
        if (row.taker == KeyTaker::Editor)
            isRight &= commandOfKey(pressed.key(), pressed.keyboardModifiers()) != NoCommand;
        if (!isRight)
            found.append(QLatin1String(row.key));
    }
    return found;
}

/// Commands that no menu, popup or toolbar shows.
inline QStringList unreachable(const QWidget &window, std::span<const ardiphon::Command> commands)
{
    QSet<QString> shown;
    for (const QMenu *menu : window.findChildren<QMenu *>())
        for (const QAction *each : menu->actions())
            shown.insert(each->objectName());
    for (const QToolBar *toolbar : window.findChildren<QToolBar *>())
        for (const QAction *each : toolbar->actions())
            shown.insert(each->objectName());
    QStringList found;
    for (const ardiphon::Command &command : commands)
        if (!shown.contains(QLatin1String(command.name)))
            found.append(QLatin1String(command.name));
    return found;
}

/// A name, and what goes with it.
struct Pair
{
    const char *name;
    const char *value;
};

/// Commands whose caption, with its key text behind a tab, is not the one given.
template <std::size_t Count>
QStringList wrongCaptions(const QWidget &window, const Pair (&captions)[Count])
{
    QStringList found;
    for (const Pair &each : captions) {
        const auto *shown = window.findChild<QAction *>(QLatin1String(each.name));
        if (!shown || shown->text() != QLatin1String(each.value))
            found.append(QLatin1String(each.name));
    }
    return found;
}

/// Buttons that \a toolbar lacks, or that carry out another command than the one given.
template <std::size_t Count>
QStringList wrongButtons(const QToolBar &toolbar, const Pair (&buttons)[Count])
{
    QStringList found;
    for (const Pair &each : buttons) {
        bool isRight = false;
        for (QAction *action : toolbar.actions())
            if (const QWidget *button = toolbar.widgetForAction(action))
                isRight = isRight || (button->objectName() == QLatin1String(each.name) &&
                                      action->objectName() == QLatin1String(each.value));
        if (!isRight)
            found.append(QLatin1String(each.name));
    }
    return found;
}

/// Shortcuts that two commands have.
inline QStringList doubleShortcuts(const QWidget &window)
{
    QStringList found;
    QSet<QString> seen;
    for (const QAction *each : window.findChildren<QAction *>()) {
        const QString key = each->shortcut().toString();
        if (!key.isEmpty() && seen.contains(key))
            found.append(key);
        seen.insert(key);
    }
    return found;
}

/// Access keys that two entries of one menu have: the menu's name and the key.
inline QStringList doubleAccessKeys(const QWidget &window)
{
    QStringList found;
    for (const QMenu *menu : window.findChildren<QMenu *>()) {
        QSet<QString> seen;
        for (const QAction *each : menu->actions()) {
            const QString key = QKeySequence::mnemonic(each->text()).toString();
            if (!key.isEmpty() && seen.contains(key))
                found.append(menu->objectName() + u' ' + key);
            seen.insert(key);
        }
    }
    return found;
}

/// Buttons that do not show, or have no picture.
inline QStringList bareButtons(const QWidget &window, std::span<const ardiphon::ToolButton> buttons)
{
    QStringList found;
    for (const ardiphon::ToolButton &button : buttons) {
        if (!button.name)
            continue;
        const auto *action = window.findChild<QAction *>(QLatin1String(button.command));
        const bool shown = window.findChild<QWidget *>(QLatin1String(button.name));
        if (!shown || !action || action->icon().pixmap(20, 20).toImage().isNull())
            found.append(QLatin1String(button.name));
    }
    return found;
}

/// The name of the modal window that the action opens, which is closed again; "" for none that
/// belongs to \a window.
inline QString windowOpenedBy(const QWidget &window, const QString &action)
{
    QString opened;
    QTimer::singleShot(0, &window, [&window, &opened] {
        QWidget *const modal = QApplication::activeModalWidget();
        if (modal->parent() == &window)
            opened = modal->objectName();
        modal->close();
    });
    window.findChild<QAction *>(action)->trigger();
    return opened;
}

/// Entries of the analysis menu, and of the one below the toolbar's button, that open another
/// window than their own.
inline QStringList wrongAnalysisEntries(const QWidget &window)
{
    QStringList found;
    const auto check = [&window, &found](const QString &action, const QString &form) {
        if (windowOpenedBy(window, action) != form)
            found.append(action);
    };
    check(QStringLiteral("buttonAnalisi"), QStringLiteral("FormAnalisi"));
    for (const char *each :
         {"Hetro", "LPAnal", "PVAnal", "PVLook", "CVAnal", "DNoise", "SndInfo"}) {
        const QString tool = QLatin1String(each);
        const QString form = QStringLiteral("Form") + QString(tool).replace("Snd", "SND");
        check(QStringLiteral("menu") + tool, form);
        check(QStringLiteral("button") + tool, form);
    }
    return found;
}

} // namespace CommandChecks
