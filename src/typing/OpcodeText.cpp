#include "typing/OpcodeText.h"

#include "language/WordTables.h"

#include <utility>

namespace ardiphon {

OpcodeLookup lookupIn(WordTables &words)
{
    return [&words](QByteArrayView name) {
        const int number = words.FindInTable(QString::fromUtf8(name));
        const OpcodeEntry before = words.OpcodeRecord; // it belongs to those who read it
        OpcodeText text;
        if (number > 0 && words.ReadOpcodeRecord(number))
            text = {words.OpcodeRecord.Parameters.trimmed(),
                    words.OpcodeRecord.Description.trimmed()};
        words.OpcodeRecord = before;
        return text;
    };
}

} // namespace ardiphon
