#include "documents/Headers.h"

namespace ardiphon {

namespace {

constexpr int SamplesPerControl = 10;

constexpr Header nineHeaders[] = {
    {"menu22050Mono", "&1)  22050 Hz - Mono", 22050, 1},
    {"menu22050Stereo", "&2)  22050 Hz - Stereo", 22050, 2},
    {"menu22050Quadri", "&3)  22050 Hz - Quadri", 22050, 4},
    {"menu44100Mono", "&4)  44100 Hz - Mono", 44100, 1},
    {"menu44100Stereo", "&5)  44100 Hz - Stereo", 44100, 2},
    {"menu44100Quadri", "&6)  44100 Hz - Quadri", 44100, 4},
    {"menu48000Mono", "&7)  48000 Hz - Mono", 48000, 1},
    {"menu48000Stereo", "&8)  48000 Hz - Stereo", 48000, 2},
    {"menu48000Quadri", "&9)  48000 Hz - Quadri", 48000, 4},
};

} // namespace

std::span<const Header> headers() { return nineHeaders; }

QString headerText(const Header &header)
{
    return QStringLiteral("\r\n"
                          "\tsr     = %1\r\n"
                          "\tkr     = %2\r\n"
                          "\tksmps  = %3\r\n"
                          "\tnchnls = %4\r\n")
        .arg(header.sampleRate)
        .arg(header.sampleRate / SamplesPerControl)
        .arg(SamplesPerControl)
        .arg(header.channels);
}

QString csdTemplate()
{
    return QStringLiteral("\r\n"
                          "<CsoundSynthesizer>\r\n\r\n"
                          "<CsOptions>\r\n</CsOptions>\r\n\r\n"
                          "<CsInstruments>\r\n</CsInstruments>\r\n\r\n"
                          "<CsScore>\r\n</CsScore>\r\n\r\n"
                          "</CsoundSynthesizer>\r\n\r\n");
}

} // namespace ardiphon
