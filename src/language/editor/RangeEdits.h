#pragma once

#include "language/EditorEdit.h"
#include "language/editor/FoldedLines.h"
#include "language/editor/TextBuffer.h"

#include <vector>

namespace ardiphon {

/// Several edits of a document, as one step of history that moves neither the view nor the caret
/// off its letters.
class RangeEdits
{
public:
    /// \a edits in their order; one that begins within the one before is left out.
    RangeEdits(TextBuffer &text, const std::vector<EditorEdit> &edits);

    bool isEmpty() const { return m_edits.empty(); }
    /// Lines that are taken away and put in again elsewhere.
    struct MovedLines
    {
        LineRun lines; ///< empty where the edits do something else
        int shift = 0; ///< what their numbers grow by
    };
    MovedLines movedLines() const;
    /// Changes the text, and hides again what a change of hidden lines has shown.
    void carryOut(QsciScintillaBase &view, FoldedLines &folded);

private:
    struct Edit
    {
        TextRange range;
        QByteArray text; ///< with the line ends of the document
        bool movesCaret = false;
        qsizetype added = 0; ///< by how much it made the text longer
    };
    /// A line under which others are hidden, and the last of these, by the ends of their texts.
    using Hidden = TextRange;

    bool moveLines(const Edit &removal, const Edit &insertion) const;
    qsizetype endOf(const EditorEdit &edit) const;
    void replace(QsciScintillaBase &view);
    void replaceOne(Edit &edit, qsizetype shift);
    std::vector<Hidden> hiddenLines(const FoldedLines &folded) const;
    qsizetype moved(qsizetype offset) const;

    TextBuffer &m_text;
    std::vector<Edit> m_edits;
};

} // namespace ardiphon
