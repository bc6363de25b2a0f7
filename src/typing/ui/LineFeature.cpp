#include "typing/ui/LineFeature.h"

#include "language/editor/LEditOCX.h"
#include "typing/LineEdits.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"

namespace ardiphon {

void LineFeature::install(FeatureHost &host)
{
    m_host = &host;
    const auto bind = [&](const char *name, auto command) {
        host.commands().bind(name, this, command);
    };
    bind("menuStudioComment", [this] { comment(); });
    bind("menuStudioDuplicate", [this] { duplicate(); });
    bind("menuStudioMoveUp", [this] { moveUp(); });
    bind("menuStudioMoveDown", [this] { moveDown(); });
    bind("menuStudioDeleteToEnd", [this] { deleteToLineEnd(); });
    bind("menuStudioJoin", [this] { join(); });
    bind("menuStudioUpperCase", [this] { changeCase(LetterCase::Upper); });
    bind("menuStudioLowerCase", [this] { changeCase(LetterCase::Lower); });
    bind("menuStudioNextOccurrence", [this] { selectNextOccurrence(); });
}

EditorView LineFeature::view() const
{
    const QList<EditorView> views = m_host->views();
    for (const EditorView &each : views) {
        if (each.editor == m_host->focusedEditor())
            return each;
    }
    return views.constFirst();
}

LineSpan LineFeature::selectionOf(LEditOCX &editor)
{
    editor.GetSelection();
    return {editor.SelStartLine, editor.SelStartColumn, editor.SelEndLine, editor.SelEndColumn};
}

LineBlock LineFeature::blockOf(const LEditOCX &editor, int first, int last)
{
    LineBlock block{first, {}, last == editor.LineCount()};
    for (int line = first; line <= last; ++line)
        block.lines.append(editor.LineText(line));
    return block;
}

LineBlock LineFeature::selectedBlock(LEditOCX &editor)
{
    const LineSpan span = selectionOf(editor);
    int last = span.lastLine();
    while (editor.IsHidden(last + 1))
        ++last;
    return blockOf(editor, span.startLine, last);
}

void LineFeature::carryOut(const EditorView &at, const Edits &edits, const LineRun &kept,
                           int shift) const
{
    const int lines = at.editor->LineCount();
    for (const EditorView &each : m_host->views()) {
        LEditOCX &editor = *each.editor;
        if (each.role != at.role ||
            (each.editor != at.editor && (editor.isHidden() || editor.LineCount() != lines)))
            continue;
        QList<LineRun> hidden;
        for (int line = kept.first; line <= kept.last && editor.HasFolds(); ++line) {
            if (const LineRun under = editor.HiddenUnder(line); !under.isEmpty())
                hidden.append({under.first + shift, under.last + shift});
        }
        editor.ReplaceRanges(edits);
        editor.FoldLines(hidden);
    }
}

void LineFeature::comment()
{
    const EditorView at = view();
    carryOut(at, toggledComment(selectedBlock(*at.editor)));
}

void LineFeature::duplicate()
{
    const EditorView at = view();
    const LineBlock block = selectedBlock(*at.editor);
    carryOut(at, duplicatedLines(block), {block.first, block.last()}, int(block.lines.size()));
}

void LineFeature::moveUp()
{
    const EditorView at = view();
    const LineBlock block = selectedBlock(*at.editor);
    int above = block.first - 1;
    while (at.editor->IsHidden(above))
        --above;
    if (above < 1)
        return;
    carryOut(at, linesMovedUp(blockOf(*at.editor, above, block.first - 1), block),
             {above, block.first - 1}, int(block.lines.size()));
    bringIntoView(*at.editor);
}

void LineFeature::moveDown()
{
    const EditorView at = view();
    const LineBlock block = selectedBlock(*at.editor);
    int below = block.last() + 1;
    if (block.endsText)
        return;
    while (at.editor->IsHidden(below + 1))
        ++below;
    carryOut(at, linesMovedDown(block, blockOf(*at.editor, block.last() + 1, below)),
             {block.last() + 1, below}, -int(block.lines.size()));
    bringIntoView(*at.editor);
}

/// The view stays, unless the caret would leave it.
void LineFeature::bringIntoView(LEditOCX &editor)
{
    const int line = editor.CaretLine();
    const int top = editor.PositionToPixels(line, 0).y();
    if (top < 0)
        editor.SetTopLine(line);
    else if (top + editor.LineHeight() > editor.height())
        editor.ScrollRows((top - editor.height()) / editor.LineHeight() + 2);
}

void LineFeature::deleteToLineEnd()
{
    const EditorView at = view();
    const LineSpan span = selectionOf(*at.editor);
    carryOut(at, deletedToLineEnd(span, at.editor->LineLength(span.endLine)));
}

/// A single line is joined with the one below it.
void LineFeature::join()
{
    const EditorView at = view();
    const LineSpan span = selectionOf(*at.editor);
    const int last = std::max(span.lastLine(), span.startLine + 1);
    if (last <= at.editor->LineCount())
        carryOut(at, joinedLines(blockOf(*at.editor, span.startLine, last)));
}

void LineFeature::changeCase(LetterCase letters)
{
    const EditorView at = view();
    const LineSpan span = selectionOf(*at.editor);
    carryOut(at, lettersInCase(blockOf(*at.editor, span.startLine, span.endLine), span, letters));
}

void LineFeature::selectNextOccurrence() { view().editor->SelectNextOccurrence(); }

} // namespace ardiphon
