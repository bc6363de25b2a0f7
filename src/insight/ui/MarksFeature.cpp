#include "insight/ui/MarksFeature.h"

#include "app/ConfigurationBlock.h"
#include "language/TextSpan.h"
#include "language/editor/LEditOCX.h"
#include "piece/PieceBrackets.h"
#include "piece/PieceOccurrences.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/PieceFollower.h"

namespace ardiphon {

namespace {

QList<TextSpan> spansOf(const QList<PiecePlace> &places)
{
    QList<TextSpan> spans;
    for (const PiecePlace &place : places)
        spans.append({place.line, place.column, place.length});
    return spans;
}

} // namespace

void MarksFeature::install(FeatureHost &host)
{
    m_host = &host;
    for (const EditorView &view : host.views())
        connect(view.editor, &LEditOCX::marksWanted, this,
                [this, view](const QList<LineRun> &lines) { mark(view, lines); });
}

/// A view without the focus has no marks: they belong to the caret that the user moves.
void MarksFeature::mark(const EditorView &view, const QList<LineRun> &lines) const
{
    const bool hasCaret = view.editor->hasFocus() && view.editor->SelectionLength() == 0;
    markOccurrences(view, hasCaret && m_host->config().MarkOccurrences ? lines : QList<LineRun>());
    if (hasCaret)
        markBrackets(view);
    else
        view.editor->SetMarks(MarkKind::Bracket, {});
}

/// One place alone, which is that at the caret, says nothing.
void MarksFeature::markOccurrences(const EditorView &view, const QList<LineRun> &lines) const
{
    const Piece &piece = m_host->piece().piece();
    const PieceText &text = *piece.text(view.role);
    QList<PiecePlace> places;
    const auto symbol =
        lines.isEmpty() || view.editor->CaretLine() > text.lineCount()
            ? std::nullopt
            : symbolAt(piece, text, view.editor->CaretLine(), view.editor->CaretColumn());
    for (const LineRun &run : lines) {
        if (symbol)
            places += occurrencesOf(piece, *symbol, text, run);
    }
    view.editor->SetMarks(MarkKind::Occurrence,
                          places.size() > 1 ? spansOf(places) : QList<TextSpan>());
}

void MarksFeature::markBrackets(const EditorView &view) const
{
    const PieceText &text = *m_host->piece().piece().text(view.role);
    QList<PiecePlace> places;
    if (view.editor->CaretLine() <= text.lineCount()) {
        if (const auto found =
                bracketsAt(text, view.editor->CaretLine(), view.editor->CaretColumn()))
            places = {found->here, found->partner};
    }
    view.editor->SetMarks(MarkKind::Bracket, spansOf(places));
}

} // namespace ardiphon
