#pragma once

#include "analysis/AnalysisTool.h"

namespace ardiphon {

// The hints for options that several of the utilities share.

inline constexpr Hint BeginHint = {
    "Begin:",
    "Beginning time (in seconds) of the audio segment to be analyzed.  The default is 0.0"};

inline constexpr Hint DurationHint = {
    "Duration:",
    "Duration (in seconds) of the audio segment to be analyzed.  The default of 0.0 means to "
    "the end of the file.  Maximum length is 32.766 seconds."};

inline constexpr Hint ChannelHint = {"Channel:", "Channel number sought.  The default is 1."};

inline constexpr Hint SampleRateHint = {
    "Sample Rate Override:",
    "Sampling rate of the audio input file.  This will override the srate of the soundfile "
    "header, which otherwise applies.   If neither is present, the default is 10000.  Note "
    "that for adsyn synthesis the srate of the source file and the generating orchestra need "
    "not be the same."};

inline constexpr Hint GraphicHint = {"Show graphic:", "Graphical display of results"};

} // namespace ardiphon
