#include "navigation/ui/TextScan.h"

#include "language/editor/LEditOCX.h"

namespace ardiphon {

namespace {

constexpr int Forward = 1;

bool recordHolds(const LEditOCX &editor, const QString &text)
{
    return editor.LineText(editor.SelStartLine).mid(editor.SelStartColumn, text.size()) == text;
}

} // namespace

bool containsExactly(LEditOCX &editor, const QString &text)
{
    editor.SelStartLine = editor.SelEndLine = 1;
    editor.SelStartColumn = editor.SelEndColumn = 0;
    editor.SetFindWholeWord(false);
    editor.SetFindDirection(Forward);
    editor.SetFindText(text);
    // The editor's own search pays no regard to case, so each match is looked at.
    while (editor.FindNext() == 1)
        if (recordHolds(editor, text))
            return true;
    return false;
}

} // namespace ardiphon
