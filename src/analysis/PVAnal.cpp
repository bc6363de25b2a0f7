#include "analysis/CommonHints.h"

namespace ardiphon {

namespace {

constexpr OutputFormat pvFormats[] = {{"OptionPV", ".pv", "pv"}, {"OptionPVX", ".pvx", "pvx"}};

constexpr Choice overlapOrHopsize[] = {
    {"Window Overlap (-w):", "-w", "4"},
    {"Hopsize (-h):", "-h", "200"},
};

constexpr ToolRow pvRows[] = {
    always("Begin (-b):", "-b", "TextFlags(0)", "0.0", 0),
    always("Duration (-d):", "-d", "TextFlags(1)", "0.0", 1),
    always("Channel (-c):", "-c", "TextFlags(2)", "1", 2),
    always("STFT frame size (-n):", "-n", "TextFlags(3)", "256", 3),
    {.text = "TextFlags(4)", .choices = overlapOrHopsize, .hint = 4},
    when(Rule::Not10000, "Sample rate override (-s):", "-s", "TextFlags(5)", "10000", 5),
    {.label = "Text ouput filename (-V):",
     .flag = "-V",
     .text = "TextFlags(7)",
     .rule = Rule::NotEmpty,
     .number = false,
     .proposed = "txt",
     .kind = Switch::CheckBox,
     .name = "CheckText",
     .hint = 7},
    {.label = "Latch graphics (-G):",
     .flag = "-G",
     .text = "TextFlags(6)",
     .initial = "200",
     .kind = Switch::CheckBox,
     .name = "CheckLatch",
     .hint = 6},
    check("CheckGraphic", "Show Graphic (-g)", "-g", 8),
    check("CheckVerbose", "Use verbose mode (-v)", "-v"),
};

constexpr ToolGroup pvGroups[] = {{"", pvRows}};

constexpr Hint pvHints[] = {
    BeginHint,
    DurationHint,
    ChannelHint,
    {"STFT:",
     "STFT frame size, the number of samples in each Fourier analysis frame.  Must be a power "
     "of two, in the range 16 to 16384.  For clean results, a frame must be larger than the "
     "longest pitch period of the sample.  However, very long frames result in temporal "
     "'smearing' or reverberation.  The bandwidth of each STFT bin is determined by sampling "
     "rate / frame size.  The default framesize is the smallest power of two that corresponds "
     "to more than 20 milliseconds of the source (e.g. 512 points at 20 kHz sampling, giving a "
     "25.6 ms frame)."},
    {"Window Overlap or Hopsize:",
     "Window overlap factor.\r\nThis controls the number of Fourier transform frames per "
     "second.  Csound's pvoc will interpolate between frames, but too few frames will generate "
     "audible distortion;  too many frames will result in a huge analysis file.  A good "
     "compromise for windfact is 4, meaning that each input point occurs in 4 output windows, "
     "or conversely that the offset between successive STFT frames is framesize/4.  The "
     "default value is 4.  Do not use this flag with -h.\r\nHopsize: STFT frame "
     "offset.\r\nConverse of above, specifying the increment in samples between successive "
     "frames of analysis (see also LPANAL).  Do not use with -w."},
    SampleRateHint,
    {"Latch graphics:", "Latch graphics to prevent too frequent resizing (default 200)"},
    {"Text:", "Send output to text file 'fname'"},
    GraphicHint,
};

} // namespace

const AnalysisTool PVAnal = {
    .form = "FormPVAnal",
    .caption = "PVANAL - Phase Vocoder Soundfile Analysis",
    .keyword = "pvanal",
    .formats = pvFormats,
    .groups = pvGroups,
    .hints = pvHints,
};

} // namespace ardiphon
