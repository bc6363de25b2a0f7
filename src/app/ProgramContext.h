#pragma once

#include "app/EditorWindows.h"

namespace ardiphon {

struct ConfigurationBlock;
class SettingsStore;
class Dialogs;

/// What the program's start passes to every window.
struct ProgramContext
{
    ConfigurationBlock &config;
    SettingsStore &settings;
    Dialogs &dialogs;
    EditorWindows windows; ///< set as soon as the windows can be made
};

} // namespace ardiphon
