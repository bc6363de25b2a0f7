#pragma once

#include "piece/Piece.h"
#include "typing/Signature.h"

#include <QByteArray>
#include <QString>

namespace ardiphon {

/// What can stand where the caret is.
enum class PlaceKind : quint8 {
    Nothing, ///< a comment, a new name, or a text that nobody can know
    // The orchestra.
    Statement, ///< the first word of a statement
    Output,    ///< a further name on the left of an opcode
    Opcode,    ///< behind the names on the left
    Argument,  ///< of an opcode
    Value,     ///< any other value
    Label,
    Instrument, ///< by number or in quotes
    Channel,    ///< in quotes
    GenNumber,
    Text,      ///< in quotes, an argument of an opcode
    Directive, ///< as #include
    Macro,     ///< behind $, or behind a directive that wants a macro
    // The score.
    ScoreStatement,
    ScoreInstrument,
    ScoreGenNumber,
    ScoreLabel,
    // Both.
    File, ///< in quotes, where a file is wanted
    // A unified file.
    Tag,
    Option,   ///< of the compiler
    Document, ///< the first word of a line outside of all sections
};

/// Where the caret stands in a piece, and the word there that a suggestion takes the place of.
struct CompletionPlace
{
    PlaceKind kind = PlaceKind::Nothing;
    PieceSection section = PieceSection::Outside;
    DocumentRole role = DocumentRole::Csd;
    int line = 1;
    int start = 0;          ///< of the word, a column in characters
    int end = 0;            ///< of the word; the caret is between both
    QString typed;          ///< from the start to the caret
    QByteArray opcode;      ///< whose argument it is; "" for none
    int argument = 0;       ///< from 1
    QList<ValueType> left;  ///< the types of the names on the left of an opcode or of =
    bool isQuoted = false;  ///< the word stands in quotes
    bool isInValue = false; ///< an opcode stands here with its arguments in brackets
    /// What is open to the left of the caret in its line, the innermost last: ( or [ or ".
    QByteArray open;

    bool isSomething() const { return kind != PlaceKind::Nothing; }
    friend bool operator==(const CompletionPlace &, const CompletionPlace &) = default;
};

/// The place at \a column, in characters, of \a line of \a text. Nothing in a line of more than 16
/// KiB. Costs what a hundred lines take.
CompletionPlace completionPlace(const Piece &piece, const PieceText &text, int line, int column);

/// How many characters of \a behind, which is what follows the caret, belong to the word there.
int restOfWord(const CompletionPlace &place, QStringView behind);

/// Whether \a c can be in the word at a place of that kind.
bool isOfCompletedWord(const CompletionPlace &place, QChar c);

} // namespace ardiphon
