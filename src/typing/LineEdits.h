#pragma once

#include "language/EditorEdit.h"

#include <QStringList>

#include <vector>

namespace ardiphon {

/// What the commands for lines change, as edits for LEditOCX::ReplaceRanges. They leave the caret
/// and the selection at their letters. No edits where there is nothing to change.

/// Lines of a text that follow each other.
struct LineBlock
{
    int first = 1;         ///< the number of the first one
    QStringList lines;     ///< without their line ends, at least one
    bool endsText = false; ///< whether the last one is the last line of the text

    int last() const { return first + int(lines.size()) - 1; }
};

/// A part of the text, as a selection is.
struct LineSpan
{
    int startLine = 1;
    int startColumn = 0;
    int endLine = 1;
    int endColumn = 0;

    bool isEmpty() const { return startLine == endLine && startColumn == endColumn; }
    /// The last line that something is selected of: not the one at whose beginning it ends.
    int lastLine() const { return endColumn == 0 && endLine > startLine ? endLine - 1 : endLine; }
};

/// Puts a semicolon into the margin of the block, which is where the line with the fewest blanks
/// begins, on all lines that are not empty. Where all of these are comments, takes the first
/// semicolon of each away, so that the one undoes the other.
std::vector<EditorEdit> toggledComment(const LineBlock &block);

/// The lines once more, below.
std::vector<EditorEdit> duplicatedLines(const LineBlock &block);

/// Two blocks, one directly below the other, change their places: the one that is not \a block is
/// taken away and put in again, so that the caret stays in \a block.
std::vector<EditorEdit> linesMovedUp(const LineBlock &above, const LineBlock &block);
std::vector<EditorEdit> linesMovedDown(const LineBlock &block, const LineBlock &below);

/// Takes away what is selected and the rest of the line that it ends on; \a length is that of this
/// line.
std::vector<EditorEdit> deletedToLineEnd(const LineSpan &span, int length);

/// Makes one line of the block, with a blank where two lines met, and none beside an empty one.
std::vector<EditorEdit> joinedLines(const LineBlock &block);

enum class LetterCase { Upper, Lower };

/// Changes the letters of \a span, which is in \a block, or of the whole block where it is empty.
/// A letter that would become several stays.
std::vector<EditorEdit> lettersInCase(const LineBlock &block, const LineSpan &span,
                                      LetterCase letters);

} // namespace ardiphon
