#pragma once

#include "app/DocumentRole.h"
#include "language/TokenColors.h"
#include "piece/OrchestraLine.h"
#include "piece/PieceState.h"

#include <QByteArrayView>
#include <QVarLengthArray>

#include <functional>
#include <optional>

namespace ardiphon {

/// What a part of a line is to the language, as far as that gives it a colour.
enum class Meaning : quint8 {
    Plain,      ///< none of what follows
    Comment,    ///< in any of its forms, or the part of one that is on the line
    Text,       ///< in quotes, {{ }} or R"( )", with them, or the part of one that is on the line
    Opcode,     ///< of the language or of the piece; also a directive, as #define
    Assignment, ///< =
    BodyWord,   ///< instr or endin
    Label,      ///< where it stands, and where something jumps to it
    PField,     ///< as p4
    Macro,      ///< its name and its arguments where it is defined, and its uses
    Tag,        ///< of a unified file
    Statement,  ///< the letter of a statement of the score
};

/// A part of a line, in bytes.
struct MeaningRange
{
    int start = 0;
    int length = 0;
    Meaning meaning = Meaning::Plain;

    friend bool operator==(const MeaningRange &, const MeaningRange &) = default;
};

using MeaningRanges = QVarLengthArray<MeaningRange, 32>;

/// The words by which a line is read.
struct MeaningWords
{
    IsOpcode isOpcode;                              ///< of the language or of the piece
    std::function<bool(QByteArrayView word)> isTag; ///< a tag with its brackets, as "<CsScore>"
};

/// Takes a line of a text of \a role, of which the first PieceText::LongestLine bytes are read, and
/// in \a state what the lines above say of it (PieceText::stateAt). Gives what its parts are, from
/// left to right, without the blanks between them, and in \a state what is to be said of the next
/// line; only PieceState::body stays as it is. Any bytes are read, none is refused.
MeaningRanges meaningsOf(QByteArrayView line, DocumentRole role, PieceState &state,
                         const MeaningWords &words);

/// The colours that the user has for what a part is, in a view of \a role; none for a comment,
/// which the view has its own colour for.
std::optional<TokenColors> colorsOf(const ConfigurationBlock &config, DocumentRole role,
                                    Meaning meaning);

} // namespace ardiphon
