#pragma once

#include "analysis/AnalysisTool.h"

namespace ardiphon {

/// A line of the launcher: its button and what its help mark shows. SNDINFO, which is no tool of
/// the compiler's, has no description.
struct LauncherRow
{
    const char *name; ///< of the button
    const char *caption;
    const char *icon;
    const AnalysisTool *tool;
    const char *help;
};

std::span<const LauncherRow> launcherRows();

} // namespace ardiphon
