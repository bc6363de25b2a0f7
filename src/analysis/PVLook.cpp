#include "analysis/AnalysisTool.h"

namespace ardiphon {

namespace {

// The flags are only in the labels: this form starts no tool.
constexpr ToolRow lookRows[] = {
    always("Begin Bin (-bb):", "", "TextFlags(0)", "1", 0),
    always("End Bin (-eb):", "", "TextFlags(1)", "-1", 1),
    always("Begin Frame (-bf):", "", "TextFlags(2)", "1", 2),
    always("End Frame (-ef):", "", "TextFlags(3)", "-1", 3),
    check("CheckInt", "Print values as integers (-i)", "", 4),
};

constexpr ToolGroup lookGroups[] = {{"", lookRows}};

constexpr Hint lookHints[] = {
    {"Begin Bin:", "Begin at anaysis bin N. Numbered from 1 [defaults to 1]"},
    {"End Bin:", "End at anaysis bin N [defaults to highest]"},
    {"Begin Frame:", "Begin at anaysis frame N. Numbered from 1 [defaults to 1]"},
    {"End Frame:", "End at anaysis frame N [defaults to last]"},
    {"Print values as integers:", "Prints values as integers [defaults to floating point]"},
};

} // namespace

const AnalysisTool PVLook = {
    .form = "FormPVLook",
    .caption = "PVLOOK - Read PVANAL Files",
    .groups = lookGroups,
    .hints = lookHints,
    .inputFilter = "PVAnal files (*.pv)|*.pv|All Files (*.*)|*.*",
    .moreFlags = false,
};

} // namespace ardiphon
