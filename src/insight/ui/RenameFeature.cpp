#include "insight/ui/RenameFeature.h"

#include "insight/ui/FormRename.h"
#include "language/editor/LEditOCX.h"
#include "platform/Dialogs.h"
#include "workbench/Document.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/PieceFollower.h"

#include <QFileInfo>
#include <QMainWindow>

namespace ardiphon {

void RenameFeature::install(FeatureHost &host)
{
    m_host = &host;
    host.commands().bind("menuStudioRename", this, [this] { rename(); });
}

/// The view with the focus, or the first.
EditorView RenameFeature::caretView() const
{
    const LEditOCX *const focused = m_host->focusedEditor();
    const QList<EditorView> views = m_host->views();
    for (const EditorView &view : views) {
        if (view.editor == focused)
            return view;
    }
    return views.constFirst();
}

std::optional<PieceSymbol> RenameFeature::symbolIn(const EditorView &view) const
{
    const Piece &piece = m_host->piece().piece();
    return symbolAt(piece, *piece.text(view.role), view.editor->CaretLine(),
                    view.editor->CaretColumn());
}

QString RenameFeature::documentName(DocumentRole role) const
{
    const Document *const document = m_host->document(role);
    return document && document->hasFile() ? QFileInfo(document->name()).fileName() : Untitled;
}

void RenameFeature::rename()
{
    const EditorView view = caretView();
    const Piece &piece = m_host->piece().readPiece();
    if (piece.isRead()) {
        const QString obstacle = renameObstacle(symbolIn(view));
        if (!obstacle.isEmpty()) {
            m_host->dialogs().message({.text = obstacle, .icon = MessageIcon::Information});
            return;
        }
    }
    if (const auto edits = ask(view))
        carryOut(*edits);
}

/// None where the user left.
std::optional<QList<RenameEdit>> RenameFeature::ask(const EditorView &view)
{
    const Piece &piece = m_host->piece().piece();
    FormRename form({piece, [this, view] { return symbolIn(view); },
                     [this](DocumentRole role) { return documentName(role); }},
                    &m_host->owner());
    for (LEditOCX *const editor : m_host->editors())
        connect(editor, &LEditOCX::textChanged, &form, &FormRename::restart);
    return form.exec() == QDialog::Accepted ? std::optional(form.edits()) : std::nullopt;
}

/// In both views of a split, as each keeps its own caret.
void RenameFeature::carryOut(const QList<RenameEdit> &edits) const
{
    for (const EditorView &view : m_host->views()) {
        const LEditOCX *const main = m_host->editor(view.role);
        if (view.editor != main &&
            (view.editor->isHidden() || view.editor->LineCount() != main->LineCount()))
            continue;
        std::vector<EditorEdit> own;
        for (const RenameEdit &edit : edits) {
            if (edit.place.role == view.role)
                own.push_back({edit.place.line, edit.place.column, edit.place.length, edit.text});
        }
        view.editor->ReplaceRanges(own);
    }
}

} // namespace ardiphon
