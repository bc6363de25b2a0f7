#pragma once

#include "app/DocumentRole.h"
#include "language/EditorKeyRules.h"

namespace ardiphon {

class LEditOCX;

/// One view of an editor window: the editor, the document that it shows, and which of the two
/// views it is.
struct EditorView
{
    LEditOCX *editor = nullptr;
    DocumentRole role = DocumentRole::Csd;
    ViewPosition position = ViewPosition::First;
};

} // namespace ardiphon
