#include "workbench/ui/CommandSet.h"

#include "app/ui/Icons.h"

#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace ardiphon {

namespace {

QString shownCaption(const Command &command, const Shortcut &shortcut)
{
    const QString caption = QLatin1String(command.caption);
    return *shortcut.text ? caption + u'\t' + QLatin1String(shortcut.text) : caption;
}

/// The shortcut of the command of that \a name; one without a key when there is none.
Shortcut shortcutOf(const char *name, std::span<const Shortcut> shortcuts)
{
    const auto found =
        std::find_if(shortcuts.begin(), shortcuts.end(), [name](const Shortcut &shortcut) {
            return qstrcmp(shortcut.command, name) == 0;
        });
    return found == shortcuts.end() ? Shortcut() : *found;
}

const Menu *menuNamed(std::span<const Menu> menus, const char *name)
{
    const auto found = std::find_if(menus.begin(), menus.end(), [name](const Menu &menu) {
        return qstrcmp(menu.name, name) == 0;
    });
    return found == menus.end() ? nullptr : &*found;
}

} // namespace

void CommandSet::add(const Command &command, const Shortcut &shortcut)
{
    auto *action = new QAction(shownCaption(command, shortcut), m_window);
    action->setObjectName(QLatin1String(command.name));
    if (shortcut.taker == KeyTaker::Window)
        action->setShortcut(QKeySequence(QLatin1String(shortcut.key)));
    action->setCheckable(command.checkable);
    m_window->addAction(action);
    m_actions.insert(command.name, {action});
}

void CommandSet::add(std::span<const Command> commands, std::span<const Shortcut> shortcuts)
{
    for (const Command &command : commands)
        add(command, shortcutOf(command.name, shortcuts));
}

void CommandSet::addGroup(const char *name, const QList<QAction *> &actions)
{
    m_actions.insert(name, actions);
}

QAction *CommandSet::action(const char *name) const
{
    const auto found = m_actions.find(name);
    if (found != m_actions.end() && !found->isEmpty())
        return found->front();
    qCritical("There is no command \"%s\".", name);
    auto *const nothing = new QAction(m_window);
    nothing->setEnabled(false);
    return nothing;
}

void CommandSet::bindTo(const char *name, const char *other)
{
    bind(name, action(other), &QAction::trigger);
}

void CommandSet::bindTo(std::span<const CommandAlias> aliases)
{
    for (const CommandAlias &alias : aliases)
        bindTo(alias.name, alias.other);
}

void CommandSet::fill(QMenuBar &bar, std::span<const Menu> menus,
                      std::span<const Menu> submenus) const
{
    for (const Menu &row : menus)
        fill(*bar.addMenu(QString()), row, submenus);
}

void CommandSet::fill(QMenu &menu, const Menu &row, std::span<const Menu> submenus) const
{
    menu.setObjectName(QLatin1String(row.name));
    menu.setTitle(QLatin1String(row.title));
    for (const char *name : row.entries) {
        if (!name)
            menu.addSeparator();
        else if (const Menu *submenu = menuNamed(submenus, name))
            fill(*menu.addMenu(QString()), *submenu, submenus);
        else
            menu.addActions(m_actions.value(name));
    }
}

void CommandSet::fill(QToolBar &bar, std::span<const ToolButton> buttons) const
{
    for (const ToolButton &row : buttons) {
        if (!row.name) {
            bar.addSeparator();
            continue;
        }
        QAction *command = action(row.command);
        command->setIcon(programIcon(QLatin1String(row.icon)));
        command->setIconVisibleInMenu(false);
        command->setToolTip(QLatin1String(row.toolTip));
        bar.addAction(command);
        bar.widgetForAction(command)->setObjectName(QLatin1String(row.name));
        bar.widgetForAction(command)->setFocusPolicy(Qt::NoFocus);
        if (!row.menu.empty())
            addMenu(*qobject_cast<QToolButton *>(bar.widgetForAction(command)), row.menu);
    }
}

void CommandSet::addMenu(QToolButton &button, std::span<const ToolButton> entries) const
{
    auto *const menu = new QMenu(&button);
    for (const ToolButton &row : entries) {
        QAction *const command = action(row.command);
        QAction *const entry =
            menu->addAction(programIcon(QLatin1String(row.icon)), QLatin1String(row.toolTip));
        entry->setObjectName(QLatin1String(row.name));
        QObject::connect(entry, &QAction::triggered, command, &QAction::trigger);
    }
    button.setMenu(menu);
    button.setPopupMode(QToolButton::MenuButtonPopup);
}

} // namespace ardiphon
