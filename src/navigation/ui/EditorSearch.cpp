#include "navigation/ui/EditorSearch.h"

#include "language/editor/LEditOCX.h"

namespace ardiphon {

namespace {

void setSearch(LEditOCX &editor, const QString &text, int direction, bool wholeWord)
{
    editor.SetFindWholeWord(wholeWord);
    editor.SetFindDirection(direction);
    editor.SetFindText(text);
}

} // namespace

bool isEmptyText(const LEditOCX &editor) { return editor.IsEmpty(); }

bool findFirst(LEditOCX &editor, const QString &text, int direction, bool wholeWord)
{
    setSearch(editor, text, direction, wholeWord);
    return editor.FindFirst() == 1;
}

bool findNext(LEditOCX &editor, const QString &text, int direction, bool wholeWord)
{
    setSearch(editor, text, direction, wholeWord);
    return editor.FindNext() == 1;
}

void setRecord(LEditOCX &editor, int line, int column)
{
    editor.SelStartLine = editor.SelEndLine = line;
    editor.SelStartColumn = editor.SelEndColumn = column;
}

void giveFocus(LEditOCX &editor)
{
    editor.window()->activateWindow();
    editor.setFocus();
}

} // namespace ardiphon
