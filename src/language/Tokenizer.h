#pragma once

#include "language/Token.h"

#include <QByteArrayView>
#include <QList>
#include <QString>

namespace ardiphon {

/// What a line begins in; a block comment is the only thing that goes on over a line's end. A text
/// from inside a line may also begin in quoted text or in a comment to the line's end.
enum class LineState : char { Text, BlockComment, Quoted, LineComment };

/// A token, or a comment, within a line of UTF-8 text. Blanks belong to none.
struct Token
{
    qsizetype start = 0;  ///< in bytes from the line's start
    qsizetype length = 0; ///< in bytes
    TokenKind kind = TokenKind::Other;
    bool comment = false; ///< it is a comment; `kind` means nothing then

    qsizetype end() const { return start + length; }
    friend bool operator==(const Token &, const Token &) = default;
};

/// The tokens of one line of UTF-8 text (without its line end), in order; \a state is what the line
/// begins in and becomes what the next one begins in.
///
/// Blanks separate. `"` opens quoted text up to the next `"` or the line's end, `;` a comment to
/// the line's end, `/*` one up to the next `*/`. A word is a tag (`<`, perhaps a `/`, letters, `>`)
/// or a name: a letter, `_`, `#` or `$`, then letters, digits and `_`, and after a name that began
/// with `$` one `.`. Digits with what follows them of letters, digits and `_` are one other token.
QList<Token> tokenizeLine(QByteArrayView line, LineState &state);

/// What the line after \a text begins in, where \a text is any number of whole lines of which the
/// first begins in \a state. The same as by tokenizing them all, but fast.
LineState stateBehind(QByteArrayView text, LineState state);

/// What the rest of a line begins in after \a text, where \a text begins in \a state and ends
/// neither inside a token nor inside the mark that opens or closes a comment.
LineState stateInside(QByteArrayView text, LineState state);

/// A place in \a line, at \a from or a little after it, where a text for stateInside() may end; the
/// line's end at the latest. It may be inside a token that is longer than any that has a meaning.
qsizetype boundaryInside(QByteArrayView line, qsizetype from);

/// The word at byte \a column of a line: the one that holds the column, else the one that ends
/// there, else "". A comment and quoted text hold no words.
QString wordAt(QByteArrayView line, qsizetype column, LineState state);

} // namespace ardiphon
