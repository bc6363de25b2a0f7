#include "insight/ui/GoToPlace.h"

#include "app/ProgramContext.h"
#include "language/editor/LEditOCX.h"
#include "piece/Piece.h"
#include "platform/Dialogs.h"
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

void goToPlace(FeatureHost &host, const PiecePlace &place, const QString &file)
{
    const std::function<bool(const QString &, int)> &open = host.program().windows.openFile;
    if (file.isEmpty())
        goToPlace(host, place);
    else if (open && !open(file, place.line))
        host.dialogs().message(
            {file + QStringLiteral(" cannot be opened in a window of its own.")});
}

} // namespace ardiphon
