#include "typing/ui/IndentFeature.h"

#include "app/ConfigurationBlock.h"
#include "language/LineSource.h"
#include "language/editor/LEditOCX.h"
#include "typing/BlockIndent.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/PieceFollower.h"

namespace ardiphon {

void IndentFeature::install(FeatureHost &host)
{
    m_host = &host;
    for (const EditorView &view : host.views()) {
        view.editor->SetNewLineRule(
            [this, view](int line, int column) -> std::optional<NewLineBlanks> {
                if (!m_host->config().IndentByBlocks)
                    return std::nullopt;
                const PieceText *const text = textOf(view, line);
                return text ? blanksForNewLine(*text, line, column, view.editor->TabSize())
                            : std::nullopt;
            });
    }
    host.commands().bind("menuStudioReindent", this, [this] { reindent(); });
}

const PieceText *IndentFeature::textOf(const EditorView &view, int line) const
{
    const PieceText *const text = m_host->piece().readPiece().text(view.role);
    const LineSource &lines = view.editor->Lines();
    const bool isSame = text && text->lineCount() == lines.lineCount() &&
                        text->line(line).toByteArray() == lines.line(line);
    return isSame ? text : nullptr;
}

/// In both views of a split, as each keeps its own caret.
void IndentFeature::reindent()
{
    const QList<EditorView> views = m_host->views();
    EditorView at = views.constFirst();
    for (const EditorView &each : views) {
        if (each.editor == m_host->focusedEditor())
            at = each;
    }
    LEditOCX &editor = *at.editor;
    const PieceText *const text = textOf(at, 1);
    if (!text)
        return;
    editor.GetSelection();
    int first = 1;
    int last = editor.LineCount();
    if (editor.SelectionLength() > 0) {
        first = editor.SelStartLine;
        last = editor.SelEndLine - (editor.SelEndColumn == 0 ? 1 : 0);
    }
    const std::vector<EditorEdit> edits = reindentedLines(*text, first, last, editor.TabSize());
    for (const EditorView &each : views) {
        if (each.role == at.role &&
            (each.editor == at.editor ||
             (!each.editor->isHidden() && each.editor->LineCount() == text->lineCount())))
            each.editor->ReplaceRanges(edits);
    }
}

} // namespace ardiphon
