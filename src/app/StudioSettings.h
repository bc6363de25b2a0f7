#pragma once

#include "app/ConfigurationBlock.h"

namespace ardiphon {

/// A setting of the sheet "Studio" that is on or off: what it is called in the store, where it has
/// the text "1" or "0", its field, and what it is where the store has neither.
struct StudioSwitch
{
    const char *name;
    bool ConfigurationBlock::*field;
    bool isOnAtFirst;
};

inline constexpr StudioSwitch StudioSwitches[] = {
    {"ColoursByMeaning", &ConfigurationBlock::ColoursByMeaning, false},
    {"CompletionWhileTyping", &ConfigurationBlock::CompletionWhileTyping, true},
    {"ArgumentHints", &ConfigurationBlock::ArgumentHints, true},
    {"PointerHelp", &ConfigurationBlock::PointerHelp, true},
    {"MarkOccurrences", &ConfigurationBlock::MarkOccurrences, true},
    {"CheckWhileTyping", &ConfigurationBlock::CheckWhileTyping, true},
    {"IndentByBlocks", &ConfigurationBlock::IndentByBlocks, false},
};

} // namespace ardiphon
