#pragma once

#include "workbench/Command.h"

#include <QAction>
#include <QHash>

class QMenu;
class QMenuBar;
class QToolBar;
class QToolButton;

namespace ardiphon {

/// The actions of a window, made from its tables of commands.
class CommandSet
{
public:
    /// The actions belong to \a window, and their shortcuts work in it.
    explicit CommandSet(QWidget *window) : m_window(window) {}

    /// \a shortcut: its key, if it has one.
    void add(const Command &command, const Shortcut &shortcut = {});
    /// Adds all of \a commands, each with its key among \a shortcuts.
    void add(std::span<const Command> commands, std::span<const Shortcut> shortcuts);
    /// Names a group of actions that a menu takes as a whole.
    void addGroup(const char *name, const QList<QAction *> &actions);

    bool has(const char *name) const { return m_actions.contains(name); }
    /// The action of that name, the first of a group. For a name that is not in the tables, which
    /// is a mistake and reported as one, an action that does nothing.
    QAction *action(const char *name) const;

    /// Has \a handler of \a receiver called when the command is chosen.
    template <typename Receiver, typename Handler>
    void bind(const char *name, Receiver *receiver, Handler handler)
    {
        QObject::connect(action(name), &QAction::triggered, receiver, handler);
        ++m_handlers[name];
    }
    /// How many handlers were bound to the command: exactly one, when all commands are bound.
    int handlers(const char *name) const { return m_handlers.value(name); }
    /// Makes the command \a name do what \a other does.
    void bindTo(const char *name, const char *other);
    void bindTo(std::span<const CommandAlias> aliases);

    void fill(QMenuBar &bar, std::span<const Menu> menus, std::span<const Menu> submenus) const;
    void fill(QMenu &menu, const Menu &row, std::span<const Menu> submenus = {}) const;
    void fill(QToolBar &bar, std::span<const ToolButton> buttons) const;

private:
    void addMenu(QToolButton &button, std::span<const ToolButton> entries) const;

    QWidget *m_window;
    QHash<QByteArray, QList<QAction *>> m_actions;
    QHash<QByteArray, int> m_handlers;
};

} // namespace ardiphon
