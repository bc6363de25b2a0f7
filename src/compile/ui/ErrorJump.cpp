#include "compile/ui/ErrorJump.h"

#include "language/editor/LEditOCX.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int LinesSeenAround = 3;

/// Scrolls a line at the edge of the view, or near it, to the first third of the view.
void showLinesAround(LEditOCX &editor, int line)
{
    const int lines = editor.height() / std::max(1, editor.LineHeight());
    const int above = line - editor.TopLine();
    const int wanted = std::min(LinesSeenAround, lines / 3);
    if (above < wanted || lines - above <= wanted + 1) // the last may be covered in part
        editor.SetTopLine(std::max(1, line - lines / 3));
}

} // namespace

void jumpToErrorLine(LEditOCX &editor, int line)
{
    editor.SelStartLine = line;
    editor.SelEndLine = line;
    editor.SelStartColumn = 0;
    editor.SelEndColumn = editor.LineLength(line);
    editor.SetSelection();
    editor.GetSelection();
    showLinesAround(editor, editor.SelStartLine);
}

} // namespace ardiphon
