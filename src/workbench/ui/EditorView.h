#pragma once

#include "app/DocumentRole.h"
#include "language/EditorKeyRules.h"

namespace ardiphon {

class Gutter;
class LEditOCX;

/// One view of an editor window: the editor, the document that it shows, which of the two views it
/// is, and the gutter beside it.
struct EditorView
{
    LEditOCX *editor = nullptr;
    DocumentRole role = DocumentRole::Csd;
    ViewPosition position = ViewPosition::First;
    Gutter *gutter = nullptr;
};

} // namespace ardiphon
