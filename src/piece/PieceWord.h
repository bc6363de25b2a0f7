#pragma once

#include "piece/PieceState.h"

#include <QByteArrayView>
#include <QVarLengthArray>

namespace ardiphon {

/// What a word of a piece is, told by where it stands alone.
enum class WordUse : quint8 {
    Instrument,    ///< its number or its name: in a heading, in a note, or as an argument
    OpcodeName,    ///< in the heading of a user-defined opcode
    Call,          ///< an opcode that is called
    Name,          ///< of a variable or of an opcode, or a word of the language
    PField,        ///< p and a number
    Label,         ///< in the orchestra, or the mark of a place in the score (m and n)
    Macro,         ///< without its $ and the full stop that may end it
    MacroArgument, ///< the same, within the text of a macro that has it as an argument
    Channel,
    HiddenInstrument, ///< a macro or an expression at the place of a note's instrument
};

/// How a word is written, which matters where a number becomes a name.
enum class WordForm : quint8 {
    Plain,
    Number,        ///< of an instrument, where the language wants quotes around a name
    Quoted,        ///< in quotes
    EscapedNumber, ///< the same two within a text in quotes
    EscapedQuoted,
};

/// A word of one line. Ranges are bytes of the line.
struct PieceWord
{
    WordUse use = WordUse::Name;
    WordForm form = WordForm::Plain;
    PieceSection section = PieceSection::Orchestra; ///< whose language it belongs to
    PieceBody body = PieceBody::None;               ///< that it stands in
    bool defines = false;                           ///< rather than uses
    bool isInMacro = false;                         ///< in the text of a macro
    bool isNameOnly = false;                        ///< an opcode takes no number in its place
    bool isNumberOnly = false;                      ///< or no name
    int start = 0;
    int length = 0;       ///< of a number without its sign and fraction
    int literalStart = 0; ///< with its quotes, its sign and its fraction
    int literalLength = 0;
    /// As the piece tells names apart: a number without zeros in front. Valid as long as the line.
    QByteArrayView name;

    int end() const { return start + length; }
    bool hasSignOrFraction() const
    {
        const bool isQuoted = form == WordForm::Quoted || form == WordForm::EscapedQuoted;
        const int around = !isQuoted ? 0 : form == WordForm::Quoted ? 2 : 4;
        return literalLength > length + around;
    }
};

using PieceWords = QVarLengthArray<PieceWord, 16>;

} // namespace ardiphon
