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

QRect selectionOnScreen(LEditOCX &editor)
{
    const KeptRecord kept(editor);
    editor.GetSelection();
    const QPoint start = editor.PositionToPixels(editor.SelStartLine, editor.SelStartColumn);
    const QPoint end = editor.PositionToPixels(editor.SelEndLine, editor.SelEndColumn);
    QRect selected(start, QSize(end.x() - start.x(), editor.LineHeight()));
    if (start.y() != end.y()) // over several lines, of which the first goes to the right edge
        selected = QRect(0, start.y(), editor.width(), end.y() + editor.LineHeight() - start.y());
    const QRect seen = selected.intersected(editor.rect());
    return seen.isEmpty() ? QRect() : seen.translated(editor.mapToGlobal(QPoint(0, 0)));
}

void giveFocus(LEditOCX &editor)
{
    editor.window()->activateWindow();
    editor.setFocus();
}

} // namespace ardiphon
