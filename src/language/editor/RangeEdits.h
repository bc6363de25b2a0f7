#pragma once

#include "language/editor/FoldedLines.h"
#include "language/editor/LEditOCX.h"
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
    /// The lines that are hidden under the same headers as lines that will change.
    QList<LineRun> hiddenLines(const FoldedLines &folded) const;
    void carryOut(QsciScintillaBase &view);

private:
    struct Edit
    {
        TextRange range;
        QByteArray text;
    };

    qsizetype moved(qsizetype offset) const;

    TextBuffer &m_text;
    std::vector<Edit> m_edits;
};

} // namespace ardiphon
