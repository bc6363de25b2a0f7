#pragma once

#include "typing/OpcodeSignatures.h"

#include <functional>

namespace ardiphon {

/// What is known of the opcode of that name; empty where the language has none.
using OpcodeLookup = std::function<KnownOpcode(QByteArrayView name)>;

/// The lookup in \a opcodes, which outlive it.
inline OpcodeLookup lookupIn(OpcodeSignatures &opcodes)
{
    return [&opcodes](QByteArrayView name) {
        const int record = opcodes.recordOf(QString::fromUtf8(name));
        return record > 0 ? opcodes.of(record) : KnownOpcode();
    };
}

} // namespace ardiphon
