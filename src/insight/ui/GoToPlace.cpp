#include "insight/ui/GoToPlace.h"

#include "language/editor/LEditOCX.h"
#include "piece/Piece.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"

namespace ardiphon {

void goToPlace(FeatureHost &host, const PiecePlace &place)
{
    LEditOCX *const editor = host.editor(place.role);
    if (editor == nullptr)
        return;
    if (editor->isHidden() && host.commands().has("menuVisualizzaOrizzontale"))
        host.commands().action("menuVisualizzaOrizzontale")->trigger();
    editor->SelStartLine = editor->SelEndLine = place.line;
    editor->SelStartColumn = editor->SelEndColumn = place.column;
    editor->SetSelection();
    editor->setFocus();
}

} // namespace ardiphon
