#pragma once

#include "piece/NameTable.h"

#include <QtGlobal>

namespace ardiphon {

/// What a place of a piece is.
enum class LandmarkKind : quint8 {
    // The unified file.
    SectionBegin, ///< a tag; the name without its brackets
    SectionEnd,

    // What can be gone to.
    Instrument, ///< one of the numbers or names of an instrument; `detail` counts them from 0
    Opcode,     ///< a user-defined one; `detail` is 1 in the notation with brackets
    Struct,
    Label,
    Macro,        ///< `detail` is the number of its arguments
    Include,      ///< the name is that of the file
    Header,       ///< a value that holds for the whole orchestra, as sr
    Variable,     ///< assigned for the first time in its body; `detail` is the letter of its type
    Array,        ///< the same for an array
    PField,       ///< read for the first time in its body; `detail` is its number, 255 the largest
    Channel,      ///< `detail` is a ChannelUse
    Table,        ///< by number, or by the variable that takes its number
    StringSet,    ///< the number that a text is given
    File,         ///< a text that names a file
    Title,        ///< a comment that heads what follows it
    ScoreSection, ///< the statement that ends a section

    // Where something ends, or what is open between.
    InstrumentEnd,
    OpcodeEnd,
    MacroEnd,    ///< of a macro that takes several lines
    BlockBegin,  ///< `detail` is a BlockFamily
    BlockMiddle, ///< as else
    BlockEnd,
    BranchBegin, ///< a condition of the preprocessor
    BranchMiddle,
    BranchEnd,
};

/// What begins and ends together.
enum class BlockFamily : quint8 { Condition, Loop, Switch, Comment, Braces };

enum class ChannelUse : quint8 { Declares, Reads, Writes };

/// A place of a piece within its block of lines.
struct Landmark
{
    quint16 line = 0; ///< from 0 within the block
    LandmarkKind kind = LandmarkKind::SectionBegin;
    quint8 detail = 0;
    quint16 column = 0; ///< in bytes
    quint16 length = 0; ///< of the name in the text, in bytes
    NameTable::Id name = 0;

    friend bool operator==(const Landmark &, const Landmark &) = default;
};

static_assert(sizeof(Landmark) == 12);

} // namespace ardiphon
