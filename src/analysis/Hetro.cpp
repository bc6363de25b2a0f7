#include "analysis/CommonHints.h"

namespace ardiphon {

namespace {

constexpr OutputFormat hetroFormats[] = {{"", "", "het"}};

constexpr ToolRow hetroRows[] = {
    always("Begin (-b):", "-b", "TextFlags(0)", "0.0", 0),
    always("Duration (-d):", "-d", "TextFlags(1)", "0.0", 1),
    always("Max amp (-M):", "-M", "TextFlags(2)", "32767", 2),
    always("Min amp (-m):", "-m", "TextFlags(3)", "64", 3),
    always("Channel (-c):", "-c", "TextFlags(5)", "1", 5),
    always("Partials (-h):", "-h", "TextFlags(6)", "10", 6),
    always("Breakpoints (-n):", "-n", "TextFlags(7)", "256", 7),
    when(Rule::Above0, "Butterworth LPF (-l):", "-l", "TextFlags(4)", "0", 4),
    when(Rule::Not10000, "Sample rate override (-s):", "-s", "TextFlags(8)", "10000", 8),
};

constexpr ToolGroup hetroGroups[] = {{"", hetroRows}};

constexpr Hint hetroHints[] = {
    BeginHint,
    DurationHint,
    {"MaxAmp:", "Maximum amplitude summed across all concurrent tracks.  The default is 32767."},
    {"MinAmp:",
     "Amplitude threshold below which a single pair of amplitude/frequency tracks is "
     "considered dormant and will not contribute to output summation.  Typical values:  128 "
     "(48 db down from full scale), 64 (54 db down), 32 (60 db down), 0 (no thresholding).  "
     "The default threshold is 64 (54 db down)."},
    {"ButterworthLPF:",
     "Substitute a 3rd order Butterworth low-pass filter with cutoff frequency cutfreq (in "
     "Hz), in place of the default averaging comb filter.  The default is 0 (don't use)."},
    ChannelHint,
    {"Partials:",
     "Number of harmonic partials sought in the audio file.  Default is 10, maximum 50."},
    {"Breakpoints:",
     "Initial number of analysis breakpoints in each amplitude and frequency track, prior to "
     "thresholding (-m) and linear breakpoint consolidation.  The initial points are spread "
     "evenly over the duration.  The default is 256."},
    SampleRateHint,
};

} // namespace

const AnalysisTool Hetro = {
    .form = "FormHetro",
    .caption = "HETRO - Hetrodyne Soundfile Analysis",
    .keyword = "hetro",
    .formats = hetroFormats,
    .groups = hetroGroups,
    .hints = hetroHints,
};

} // namespace ardiphon
