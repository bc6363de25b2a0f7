#pragma once

#include "piece/MarkedPiece.h"
#include "typing/OpcodeText.h"

/// What a word table would say of some opcodes.
inline ardiphon::OpcodeText hintedOpcode(QByteArrayView name)
{
    if (name == "oscili")
        return {QStringLiteral("ares oscili xamp, xcps [, ifn, iphs] / "
                               "kres oscili kamp, kcps [, ifn, iphs]"),
                QStringLiteral("Repeats a stored waveform.")};
    if (name == "chnget")
        return {QStringLiteral("ival chnget Sname / kval chnget Sname / aval chnget Sname / "
                               "Sval chnget Sname"),
                QStringLiteral("Reads a channel.")};
    if (name == "outs")
        return {QStringLiteral("outs asig1, asig2"), QStringLiteral("Plays two channels.")};
    if (name == "active")
        return {QStringLiteral("ir active insnum / abs(x)"), QString()};
    if (name == "fillarray")
        return {QStringLiteral("kArray[] fillarray ival1, ival2 [, ...]"), QString()};
    return {};
}
