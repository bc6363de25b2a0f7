#pragma once

#include "language/EditorEdit.h"

#include <optional>
#include <vector>

namespace ardiphon {

class PieceText;

/// A word that is the only thing on its line, with the blanks before it.
struct TypedWord
{
    QByteArray blanks;
    QByteArray word;

    friend bool operator==(const TypedWord &, const TypedWord &) = default;
};

/// What \a line has up to the end of \a text when that takes the place of \a length characters
/// from \a column on. None where \a text does not end as a name may, where something else than
/// blanks and a name would be before its end, or something else than blanks behind it.
std::optional<TypedWord> typedWord(QByteArrayView line, int column, int length,
                                   const QString &text);

/// The blanks that \a line is to get as a word that ends or parts a block or a body is typed on it:
/// those of the line that begins it. None where it has no more than these, or others than the block
/// gives its lines, as then the user has chosen them; outside the orchestra, in a comment over
/// lines, a text or a macro, and where a statement goes on. Reads the lines above only.
std::optional<QString> blanksForClosingWord(const PieceText &text, int line, const TypedWord &typed,
                                            int tabSize);

/// What Enter at a place of an orchestra does to the blanks at the beginning of lines, where lines
/// stand by their blocks: instruments, opcodes, conditions, loops and switches. A line that begins
/// with what ends or parts a block (endin, endop, endif, od, else, case and their like) comes to
/// stand under the line that begins the block, where it has the block's own blanks; the new line is
/// one tab stop deeper than one that begins or parts a block, and else stands as the line does.
/// None where the blanks of the line are to be those of the new one: outside the orchestra, in a
/// comment over lines, a text or a macro, and where a statement goes on in the next line.
std::optional<NewLineBlanks> blanksForNewLine(const PieceText &text, int line, int column,
                                              int tabSize);

/// Gives the lines from \a first to \a last the blanks that their blocks ask for. Only blanks at
/// the beginning of lines change. As they are stay: all that is not the orchestra, lines outside
/// bodies and blocks, empty lines, labels, lines of the preprocessor, and what is within a comment
/// over lines, a text or a macro. Where a statement goes on in further lines, these keep their
/// place beside its first one.
std::vector<EditorEdit> reindentedLines(const PieceText &text, int first, int last, int tabSize);

} // namespace ardiphon
