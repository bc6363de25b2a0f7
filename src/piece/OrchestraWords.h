#pragma once

#include "piece/Landmark.h"

#include <QByteArrayView>

#include <optional>

namespace ardiphon {

/// A word that begins or ends a block of statements, or parts it.
struct BlockWord
{
    LandmarkKind kind; ///< BlockBegin, BlockMiddle or BlockEnd
    BlockFamily family;
};

/// None for any other word; `if` is one only where its line says "then".
std::optional<BlockWord> blockWord(QByteArrayView word);

/// Whether a word ends a block or a body, or parts a block.
bool isClosingWord(QByteArrayView word);
/// Whether there is such a word that begins with these letters, or is no longer.
bool beginsClosingWord(QByteArrayView letters);

/// Whether \a name is a value that holds for the whole orchestra, as sr.
bool isHeaderName(QByteArrayView name);
/// The letter of the type that the first letters of \a name give: i, k, a, f, w, S or b; 0 for a
/// name that no variable can have.
char variableType(QByteArrayView name);
/// What an opcode of that name does with the channel that its first text names.
std::optional<ChannelUse> channelUse(QByteArrayView opcode);
/// Whether an opcode of that name makes a function table.
bool makesTable(QByteArrayView opcode);
/// The number of a p-field, as 4 for p4; 0 for any other name.
int pFieldNumber(QByteArrayView name);
/// Whether a text, without its quotes, ends as the name of a sound, an analysis or a piece does.
bool namesFile(QByteArrayView text);

} // namespace ardiphon
