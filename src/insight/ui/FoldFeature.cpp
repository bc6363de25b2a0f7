#include "insight/ui/FoldFeature.h"

#include "language/editor/LEditOCX.h"
#include "language/ui/Gutter.h"
#include "piece/PieceBodies.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/PieceFollower.h"

#include <QMainWindow>

namespace ardiphon {

void FoldFeature::install(FeatureHost &host)
{
    m_host = &host;
    markBlocks();
    host.commands().bind("menuStudioFold", this, [this] { toggleAtCaret(); });
    host.commands().bind("menuStudioFoldAll", this, [this] { foldAll(); });
    host.commands().bind("menuStudioUnfoldAll", this, [this] { unfoldAll(); });
}

void FoldFeature::markBlocks()
{
    for (const EditorView &each : m_host->views()) {
        each.gutter->setFoldEnd([this, role = each.role](int line) {
            const Piece &piece = m_host->piece().piece();
            const PieceText &text = *piece.text(role);
            return line <= text.lineCount() ? lastLineOfBlock(piece, text, line) : 0;
        });
        connect(&m_host->piece(), &PieceFollower::pieceRead, each.gutter, &Gutter::refreshMarks);
    }
}

EditorView FoldFeature::view() const
{
    const QList<EditorView> views = m_host->views();
    for (const EditorView &each : views) {
        if (each.editor == m_host->focusedEditor())
            return each;
    }
    return views.constFirst();
}

/// What is folded under the caret's line is shown; else what begins there is folded, or else the
/// innermost block around it.
void FoldFeature::toggleAtCaret()
{
    const EditorView at = view();
    const int line = at.editor->CaretLine();
    if (at.editor->UnfoldAt(line))
        return;
    const Piece &piece = m_host->piece().readPiece();
    const LineRun block = blockAround(piece, *piece.text(at.role), line);
    if (!block.isEmpty())
        at.editor->FoldLines({{block.first + 1, block.last}});
}

void FoldFeature::foldAll()
{
    const Piece &piece = m_host->piece().readPiece();
    const EditorView at = view();
    QList<LineRun> hidden;
    for (const LineRun &block : outerBlocks(piece, *piece.text(at.role)))
        hidden.append({block.first + 1, block.last});
    at.editor->FoldLines(hidden);
}

void FoldFeature::unfoldAll() { view().editor->UnfoldAll(); }

} // namespace ardiphon
