#pragma once

#include "workbench/Command.h"

namespace ardiphon {

// For both editor windows: commands with their keys, submenus and the popup menu.
std::span<const Command> editorCommands();
std::span<const Shortcut> editorShortcuts();
std::span<const Menu> editorSubmenus();
const Menu &editorPopup();
/// Entries of the popup that do the same as entries of the menus.
std::span<const CommandAlias> editorAliases();

// The menu Studio of both windows, which is beside all that was there before it.
std::span<const Command> studioCommands();
std::span<const Shortcut> studioShortcuts();

// The CSD window: its own commands and keys, its menu bar from left to right and its toolbar.
std::span<const Command> csdCommands();
std::span<const Shortcut> csdShortcuts();
std::span<const Menu> csdMenus();
std::span<const ToolButton> csdToolbar();

// The project's window, with the toolbars of its two halves.
std::span<const Command> projectCommands();
std::span<const Shortcut> projectShortcuts();
std::span<const Menu> projectMenus();
std::span<const ToolButton> projectToolbar();
std::span<const ToolButton> orchestraToolbar();
std::span<const ToolButton> scoreToolbar();

} // namespace ardiphon
