#pragma once

#include "analysis/AnalysisTool.h"

namespace ardiphon {

/// A line of the launcher: its button and the text of its help mark. SNDINFO, which is not a tool
/// of the compiler, has no AnalysisTool.
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
