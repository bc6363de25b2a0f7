#pragma once

#include "app/ConfigurationBlock.h"

namespace ardiphon {

/// A setting of the sheet "Studio" that is on or off: what it is called in the store, where it has
/// the text "1" or "0", and its field. All are off where the store says nothing.
struct StudioSwitch
{
    const char *name;
    bool ConfigurationBlock::*field;
};

inline constexpr StudioSwitch StudioSwitches[] = {
    {"ColoursByMeaning", &ConfigurationBlock::ColoursByMeaning},
};

} // namespace ardiphon
