#pragma once

#include "language/EditorKeyRules.h"
#include "language/TokenColors.h"

namespace ardiphon {

class LEditOCX;

/// One view of an editor window: the editor, what its text is, and which of the two it is.
struct EditorView
{
    LEditOCX *editor = nullptr;
    ViewLanguage language = ViewLanguage::Csd;
    ViewPosition position = ViewPosition::First;
};

} // namespace ardiphon
