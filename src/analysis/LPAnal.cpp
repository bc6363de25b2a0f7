#include "analysis/CommonHints.h"

namespace ardiphon {

namespace {

constexpr OutputFormat lpFormats[] = {{"", "", "lp"}};

constexpr Choice verbosity[] = {{"0"}, {"1"}, {"2"}};

// The help marks are numbered differently from the fields.
constexpr ToolRow lpRows[] = {
    always("Begin (-b):", "-b", "TextFlags(0)", "0.0", 0),
    always("Duration (-d):", "-d", "TextFlags(1)", "0.0", 1),
    always("Poles (-p):", "-p", "TextFlags(2)", "34", 2),
    always("Hopsize (-h):", "-h", "TextFlags(3)", "200", 3),
    always("Channel (-c):", "-c", "TextFlags(5)", "1", 4),
    always("Lowest Freq. (-P):", "-P", "TextFlags(6)", "70", 5),
    always("Highest Freq. (-Q):", "-Q", "TextFlags(7)", "200", 6),
    {.label = "Verbosity (-v):", .flag = "-v", .choices = verbosity, .hint = 10},
    {.label = "Comment (-C):",
     .flag = "-C",
     .text = "TextFlags(4)",
     .rule = Rule::NotEmpty,
     .number = false,
     .hint = 8},
    when(Rule::Not10000, "Sample rate override (-s):", "-s", "TextFlags(8)", "10000", 7),
    check("CheckGraphic", "Show Graphic (-g)", "-g", 9),
    check("CheckPoles", "Write filter poles (-a)", "-a", 11),
};

constexpr ToolGroup lpGroups[] = {{"", lpRows}};

constexpr Hint lpHints[] = {
    BeginHint,
    DurationHint,
    {"Poles:", "Number of poles for analysis.  The default is 34, the maximum 50."},
    {"Hopsize:",
     "Hopsize (in samples) between frames of analysis.  This determines the number of frames "
     "per second (srate / hopsize) in the output control file.  The analysis framesize is "
     "hopsize * 2 samples.  The default is 200, the maximum 500."},
    ChannelHint,
    {"LowFreq:", "Lowest frequency (in Hz) of pitch tracking.  -P0 means no pitch tracking."},
    {"HighFreq:",
     "Highest frequency (in Hz) of pitch tracking.  The narrower the pitch range, the more "
     "accurate the pitch estimate.  The defaults are -P70, -Q200."},
    SampleRateHint,
    {"Comment:",
     "Text for the comments field of the lpfile header.  The default is the null string."},
    GraphicHint,
    {"Verbosity:",
     "Level of terminal information during analysis.  0 = none,  1 = verbose, 2 = debug. The "
     "default is 0."},
    {"Write filter poles:",
     "Request pole stabilisation.Makes LPANAL write a file with filter pole values rather than "
     "the original filter coefficient files NEW FLAG in Peskeigo v3.44 See entry for LPC "
     "interpolation opcodes."},
};

} // namespace

const AnalysisTool LPAnal = {
    .form = "FormLPAnal",
    .caption = "LPANAL - Linear Predictive Soundfile Analysis",
    .keyword = "lpanal",
    .formats = lpFormats,
    .groups = lpGroups,
    .hints = lpHints,
};

} // namespace ardiphon
