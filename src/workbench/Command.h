#pragma once

#include <span>

namespace ardiphon {

/// One thing that the user can ask of an editor window. Menus, toolbars and popups refer to it by
/// name.
struct Command
{
    const char *name = nullptr;    ///< its fixed name, and the objectName of its action
    const char *caption = nullptr; ///< with "&" before the access key
    bool checkable = false;
};

/// Who takes a key.
enum class KeyTaker {
    Window, ///< the window, as the shortcut of a command's action
    View,   ///< a view, which passes it to its window
    Editor, ///< the editor control, as a key of its own
};

/// A key of an editor window.
struct Shortcut
{
    const char *command = ""; ///< the command that does the same; "" where no menu has it
    const char *key = "";     ///< in Qt's portable notation
    const char *text = "";    ///< of the key in the menu, where it is not the toolkit's own
    KeyTaker taker = KeyTaker::Window;
};

/// A menu: its title, and its commands by name in their order. A null name is a separator line; the
/// name of a group of actions means all of them; the name of another menu makes it a submenu.
struct Menu
{
    const char *name;
    const char *title;
    std::span<const char *const> entries;
};

/// One button of a toolbar. It carries out a command of the menus, or one of its own with the
/// button's name. A row without a name is a separator line.
struct ToolButton
{
    const char *name;
    const char *command;
    const char *icon; ///< in data/icons, without its ending
    const char *toolTip;
    std::span<const ToolButton> menu = {}; ///< further buttons, in the menu of an arrow at its side
};

/// A command that does what another one does.
struct CommandAlias
{
    const char *name;
    const char *other;
};

} // namespace ardiphon
