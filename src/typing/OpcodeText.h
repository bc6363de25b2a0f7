#pragma once

#include <QByteArrayView>
#include <QString>

#include <functional>

namespace ardiphon {

/// What the word tables say of an opcode.
struct OpcodeText
{
    QString parameters; ///< as signaturesOf() reads them
    QString sentence;
};

/// What is known of the opcode of that name; empty texts where there is none.
using OpcodeLookup = std::function<OpcodeText(QByteArrayView name)>;

} // namespace ardiphon
