#pragma once

namespace ardiphon {

struct ConfigurationBlock;
class LEditOCX;

/// Gives \a editor the tab stops, colours, font and indent of the configuration.
void applySettings(LEditOCX &editor, const ConfigurationBlock &config);

} // namespace ardiphon
