#pragma once

namespace ardiphon {

struct ConfigurationBlock;
class LEditOCX;

/// Gives \a editor the tab stops of the configuration: its number rounded, from 2 to 30 characters.
void applyTabSize(LEditOCX &editor, const ConfigurationBlock &config);

/// Gives \a editor the tab stops, colours, font and indent of the configuration.
void applySettings(LEditOCX &editor, const ConfigurationBlock &config);

} // namespace ardiphon
