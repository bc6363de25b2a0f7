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

class WordTables;

/// What \a words say, which outlive the result. The record that was read last stays in them.
OpcodeLookup lookupIn(WordTables &words);

} // namespace ardiphon
