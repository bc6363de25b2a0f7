#include "analysis/AnalysisLauncher.h"

namespace ardiphon {

namespace {

constexpr LauncherRow launchers[] = {
    {"CommandHETRO", "&HETRO", "hetro", &Hetro,
     "Hetro takes an input soundfile, decomposes it into component sinusoids, and outputs a "
     "description of the components in the form of breakpoint amplitude and frequency tracks. "
     "This data can be read by the Csound adsyn ugen. Analysis is conditioned by the control "
     "flags below.  A space is optional between flag and value."},
    {"CommandLPANAL", "&LPANAL", "lpanal", &LPAnal,
     "LPANAL performs both LPC and pitch-tracking analysis on a soundfile to produce a "
     "time-ordered sequence of frames of control information suitable for Csound resynthesis.  "
     "Analysis is conditioned by the control flags below.  A space is optional between the flag "
     "and its value. The output file can be read by the Csound LPC dynamic spectrum modifiers "
     "and LPC interpolation ugens."},
    {"CommandPVANAL", "&PVANAL", "pvanal", &PVAnal,
     "PVAnal converts a soundfile into a series of short-time Fourier transform (STFT) frames "
     "at regular timepoints (a frequency-domain representation).  The output file can be used "
     "by pvoc to generate audio fragments based on the original sample, with timescales and "
     "pitches arbitrarily and dynamically modified."},
    {"CommandPVLOOK", "PV&LOOK", "pvlook", &PVLook,
     "PVLook is a program which reads a Csound PVANAL pvoc.n file and outputs frequency and "
     "magnitude trajectories for each of the analysis bins."},
    {"CommandCVANAL", "&CVANAL", "cvanal", &CVAnal,
     "CVAnal converts a soundfile into a single Fourier transform frame. The output file can be "
     "used by the convolve operator to perform Fast Convolution between an input signal and the "
     "original impulse response.  Analysis is conditioned by the flags below. A space is "
     "optional between the flag and its argument."},
    {"CommandDNOISE", "&DNOISE", "dnoise", &DNoise,
     "This is a noise reduction scheme using frequency-domain noise-gating. This should work "
     "best in the case of high signal-to-noise with hiss-type noise."},
    {"CommandSNDINFO", "&SNDINFO", "sndinfo", nullptr,
     "Sndinfo will attempt to find each named file, open it for reading, read in the soundfile "
     "header, then print a report on the basic information it finds.  The order of search "
     "across soundfile directories is as described above.  If the file is of type AIFF, some "
     "further details are listed first."},
};

} // namespace

std::span<const LauncherRow> launcherRows() { return launchers; }

} // namespace ardiphon
