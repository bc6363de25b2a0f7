#include "analysis/AnalysisTool.h"

namespace ardiphon {

namespace {

constexpr OutputFormat noiseFormats[] = {{"", "", "den"}};

constexpr Choice overlapOrLength[] = {
    {"Filter Overlap (-w):", "-w", "-1"},
    {"Window Length (-M):", "-M", "0"},
};

constexpr ToolRow noiseRows[] = {
    always("Bandpass Filters (-N):", "-N", "TextFlags(0)", "1024", 0),
    always("Synth. Window Length (-L):", "-L", "TextFlags(2)", "0", 2),
    always("Decimation factor (-D):", "-D", "TextFlags(3)", "0", 3),
    always("Begin time noise file (-b):", "-b", "TextFlags(4)", "0.0", 4),
    always("Starting sample noise file (-B):", "-B", "TextFlags(5)", "0", 5),
    always("End time noise file (-e):", "-e", "TextFlags(6)", "0.0", 6),
    always("Final sample noise file (-E):", "-E", "TextFlags(7)", "0", 7),
    always("Threshold noise in dB (-t):", "-t", "TextFlags(8)", "30", 8),
    always("Sharpness noise-gate (-S):", "-S", "TextFlags(9)", "1", 9),
    always("FFT frames (-n):", "-n", "TextFlags(10)", "5", 10),
    always("Min gain noise-gate in dB (-m):", "-m", "TextFlags(11)", "-40", 11),
    {.text = "TextFlags(1)", .choices = overlapOrLength, .hint = 1},
};

constexpr ToolRow soundfileRows[] = {
    {.label = "WAV (-W)", .flag = "-W", .kind = Switch::RadioButton, .name = "OptionWav"},
    {.label = "AIFF (-A)", .flag = "-A", .kind = Switch::RadioButton, .name = "OptionAIFF"},
    {.label = "IRCAM (-J)", .flag = "-J", .kind = Switch::RadioButton, .name = "OptionIRCAM"},
    {.label = "Others:",
     .text = "TextSoundfileFlags",
     .rule = Rule::NotEmpty,
     .trimmed = true,
     .number = false},
};

constexpr ToolRow additionalRows[] = {
    check("CheckRewrite", "Rewrite header WAV/AIFF (-R)", "-R", 12),
    {.label = "Heartbeat (-H)",
     .flag = "-H",
     .text = "TextHeartbeat",
     .initial = "1",
     .trimmed = true,
     .number = false,
     .kind = Switch::CheckBox,
     .name = "CheckHeartbeat",
     .hint = 13},
    check("CheckVerbose", "Verbose (-V)", "-V", 14),
};

constexpr ToolGroup noiseGroups[] = {
    {"DNoise specific flags", noiseRows},
    {"Soundfile format options", soundfileRows},
    {"Additional Options", additionalRows},
};

constexpr Hint noiseHints[] = {
    {"Bandpass Filters:", "# of bandpass filters (Default: 1024)"},
    {"Filter Overlap Factor or Analysis Window Length:",
     "Filter overlap factor:\r\n{0,1,(2),3} DON'T USE BOTH -w AND -M\r\nAnalysis window "
     "length:\r\n(N-1 unless -w is specified)"},
    {"Synthesis window length:", "Synthesis window length (Default: M) "},
    {"Decimation factor:", "Decimation factor (Default: M / 8)"},
    {"Begin Time:", "Begin time in noise reference soundfile (Default: 0)"},
    {"Starting sample:", "Starting sample in noise reference soundfile (Default: 0)"},
    {"End Time:", "End time in noise reference soundfile (Default: end of file)"},
    {"Final Sample:", "Final sample in noise reference soundfile (Default: end of file)"},
    {"Threshold:", "Threshold above noise reference in dB (Default 30)"},
    {"Sharpness:", "Sharpness of noise-gate turnoff (range 1 to 5)  (Default: 1)"},
    {"FFT Frames:", "Number of FFT frames to average over (Default: 5)"},
    {"Min gain:", "Minimum gain of noise-gate when off in dB (Default: -40)"},
    {"Rewrite header:", "Continually rewrite header while writing soundfile (WAV/AIFF)"},
    {"Heartbeat:", "Print a heartbeat character at each soundfile write. "},
    {"Verbose:", "Verbose - print status info"},
};

} // namespace

const AnalysisTool DNoise = {
    .form = "FormDNoise",
    .caption = "DNOISE - Denoise Soundfile",
    .keyword = "dnoise",
    .formats = noiseFormats,
    .groups = noiseGroups,
    .hints = noiseHints,
    .inputLabel = "Input Soundfile:",
    .noiseLabel = "Input Noise Soundfile:",
    .outputLabel = "Output Soundfile:",
    .checksFiles = false,
    .restoresEmpty = false,
};

} // namespace ardiphon
