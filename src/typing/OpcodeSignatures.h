#pragma once

#include "typing/Signature.h"

#include <QByteArrayView>
#include <QHash>

namespace ardiphon {

class WordTables;

/// What is known of an opcode of the language.
struct KnownOpcode
{
    QString parameters; ///< as the word tables have them, without the padding
    QString sentence;
    QList<Signature> signatures;
};

/// The opcodes of the word tables with their signatures, each read when it is asked for the first
/// time.
class OpcodeSignatures
{
public:
    /// \a words outlives it.
    explicit OpcodeSignatures(WordTables &words) : m_words(words) {}

    /// The number of the record of that name; 0 for none.
    int recordOf(const QString &name) const;
    /// The records are those from 1 to this one.
    int recordCount() const;
    const QString &nameOf(int record) const;
    /// Valid as long as the tables.
    const KnownOpcode &of(int record);

private:
    WordTables &m_words;
    QHash<int, KnownOpcode> m_known;
};

/// The same for an opcode that a piece defines, by its heading, as "opcode Tone, a, ki".
KnownOpcode userOpcode(QByteArrayView heading);

} // namespace ardiphon
