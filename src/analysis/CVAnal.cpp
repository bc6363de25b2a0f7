#include "analysis/CommonHints.h"

namespace ardiphon {

namespace {

constexpr OutputFormat cvFormats[] = {{"", "", "cv"}};

constexpr ToolRow cvRows[] = {
    always("Begin (-b):", "-b", "TextFlags(0)", "0.0", 0),
    always("Duration (-d):", "-d", "TextFlags(1)", "0.0", 1),
    {.label = "Channel (-c):",
     .flag = "-c",
     .text = "TextFlags(2)",
     .initial = "0",
     .rule = Rule::Not0,
     .note = "(0 = All)",
     .hint = 2},
    when(Rule::Not10000, "Sample rate override (-s):", "-s", "TextFlags(3)", "10000", 3),
};

constexpr ToolGroup cvGroups[] = {{"", cvRows}};

constexpr Hint cvHints[] = {
    BeginHint,
    DurationHint,
    {"Channel:",
     "Channel number sought. If omitted, the default is to process all channels. If a value is "
     "given, only the selected channel will be processed."},
    {"Sample Rate Override:",
     "Sampling rate of the audio input file.  This will override the srate of the soundfile "
     "header, which otherwise applies.   If neither is present, the default is 10000."},
};

} // namespace

const AnalysisTool CVAnal = {
    .form = "FormCVAnal",
    .caption = "CVANAL - Impulse Response Soundfile Analysis",
    .keyword = "cvanal",
    .formats = cvFormats,
    .groups = cvGroups,
    .hints = cvHints,
    .moreFlags = false,
};

} // namespace ardiphon
