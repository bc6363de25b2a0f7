#pragma once

class QRect;
class QString;

namespace ardiphon {

struct ConfigurationBlock;

// The windows know by themselves what they show and whether they are leaving. The configuration
// mirrors it, and nothing reads it there.

/// Writes the work area of the screen that a window has just asked for, in logical pixels.
void mirrorWorkArea(ConfigurationBlock &config, const QRect &area);

/// Writes the word for the arrangement that the project's window is in.
void mirrorArrangement(ConfigurationBlock &config, const QString &name);

/// Writes that the user ends the whole program.
void mirrorLeaving(ConfigurationBlock &config);

} // namespace ardiphon
