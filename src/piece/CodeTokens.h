#pragma once

#include "piece/CodeState.h"

#include <QByteArrayView>
#include <QVarLengthArray>

namespace ardiphon {

enum class CodeTokenKind : quint8 {
    Name,      ///< of a variable, an opcode, an instrument, a label, or a word of the language
    Number,    ///< also 0dbfs, which the language reads as a name
    Text,      ///< in quotes, {{ }} or R"( )", or the part of one that is on this line
    MacroUse,  ///< $NAME, with the full stop that may end it
    MacroText, ///< the part of a macro's text that is on this line, with its #
    Directive, ///< # and a word of the preprocessor
    Comment,   ///< or the part of one that is on this line
    Symbol,    ///< one character, or the two of ==, !=, <=, >=, &&, ||, +=, -=, *= and /=
};

/// A range of a line, in bytes.
struct CodeToken
{
    CodeTokenKind kind = CodeTokenKind::Symbol;
    int start = 0;
    int length = 0;

    int end() const { return start + length; }
    QByteArrayView in(QByteArrayView line) const { return line.sliced(start, length); }

    friend bool operator==(const CodeToken &, const CodeToken &) = default;
};

using CodeTokens = QVarLengthArray<CodeToken, 32>;

/// Reads the tokens of one line of an orchestra, as the compiler does, where \a state tells what is
/// open at its beginning and then what is open at its end. A text in quotes that is not closed ends
/// with the line. Takes any bytes.
CodeTokens readCodeLine(QByteArrayView line, CodeState &state);

} // namespace ardiphon
