#pragma once

#include "piece/Piece.h"
#include "piece/PieceWord.h"

#include <optional>

namespace ardiphon {

/// What a word of a piece means.
enum class SymbolKind : quint8 {
    Instrument,
    UserOpcode,
    LanguageOpcode,
    Variable,
    Macro,         ///< of the orchestra or of the score
    MacroArgument, ///< in the text of the macro that has it
    Label,         ///< of the orchestra, or the mark of a place in the score
    Channel,
    PField,
    LanguageWord, ///< as if, instr, sr
    Unknown,      ///< nothing in the piece says what it is
};

/// Where else the same word means the same.
enum class SymbolScope : quint8 {
    Piece, ///< in the orchestra and in the score
    Orchestra,
    Score,
    Body,          ///< between a heading and its end
    BetweenBodies, ///< in the orchestra outside of all instruments and opcodes
    Word,          ///< nowhere
};

/// A word of a piece with its meaning.
struct PieceSymbol
{
    SymbolKind kind = SymbolKind::Unknown;
    SymbolScope scope = SymbolScope::Word;
    QByteArray name;  ///< without $ and quotes; an instrument's number without zeros in front
    PiecePlace place; ///< of the name
    LineRun body;     ///< with the scope Body: the lines of it, in the same text

    bool isGlobal() const { return scope != SymbolScope::Body && scope != SymbolScope::Word; }
    friend bool operator==(const PieceSymbol &, const PieceSymbol &) = default;
};

/// The word at \a column, in characters from 0, of \a line of \a text, or the one that ends there.
/// None in a comment, in a text that names nothing of the piece, in a number, between words, and
/// outside of the orchestra and the score. Costs what a few hundred lines and the lines of the body
/// around take.
std::optional<PieceSymbol> symbolAt(const Piece &piece, const PieceText &text, int line,
                                    int column);

/// Whether \a word, which stands in \a line of the text of that role, is \a symbol.
bool isWordOf(const PieceSymbol &symbol, const PieceWord &word, DocumentRole role, int line);

/// Whether \a word is where a word that means the same as \a symbol can be.
bool isInScopeOf(const PieceSymbol &symbol, const PieceWord &word, DocumentRole role, int line);

/// Whether a variable of that name is known in all bodies: g and the letter of a type.
bool isGlobalName(QByteArrayView name);

/// Whether the language itself uses \a name, other than as an opcode: as if, instr, sr.
bool isLanguageWord(QByteArrayView name);

/// Whether the piece defines an opcode of that name.
bool definesOpcode(const Piece &piece, QByteArrayView name);

/// The byte of \a line where its character \a column begins, the line's end at most.
int byteOfCharacter(QByteArrayView line, int column);

} // namespace ardiphon
