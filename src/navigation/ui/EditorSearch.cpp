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

/// Restores an editor's selection record at the end of this object's life.
class KeptRecord
{
public:
    explicit KeptRecord(LEditOCX &editor)
        : m_editor(editor),
          m_startLine(editor.SelStartLine),
          m_startColumn(editor.SelStartColumn),
          m_endLine(editor.SelEndLine),
          m_endColumn(editor.SelEndColumn)
    {
    }
    ~KeptRecord()
    {
        m_editor.SelStartLine = m_startLine;
        m_editor.SelStartColumn = m_startColumn;
        m_editor.SelEndLine = m_endLine;
        m_editor.SelEndColumn = m_endColumn;
    }
    Q_DISABLE_COPY_MOVE(KeptRecord)

private:
    LEditOCX &m_editor;
    const int m_startLine;
    const int m_startColumn;
    const int m_endLine;
    const int m_endColumn;
};

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
    if (start.y() != end.y()) // over several lines, the first of which goes to the right edge
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
