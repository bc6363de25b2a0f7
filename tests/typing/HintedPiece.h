#pragma once

#include "piece/MarkedPiece.h"
#include "typing/OpcodeLookup.h"

/// What a word table would say of some opcodes: parameters and sentence.
inline std::pair<QString, QString> hintedTexts(QByteArrayView name)
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

inline ardiphon::KnownOpcode hintedOpcode(QByteArrayView name)
{
    const auto [parameters, sentence] = hintedTexts(name);
    return {parameters, sentence,
            ardiphon::signaturesOf(parameters, QString::fromUtf8(name.toByteArray()))};
}
