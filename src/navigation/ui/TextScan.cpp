#include "navigation/ui/TextScan.h"

#include "language/editor/LEditOCX.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/EditorSearch.h"

namespace ardiphon {

namespace {

bool recordHolds(const LEditOCX &editor, const QString &text)
{
    return editor.LineText(editor.SelStartLine).mid(editor.SelStartColumn, text.size()) == text;
}

} // namespace

bool containsExactly(LEditOCX &editor, const QString &text)
{
    const KeptRecord kept(editor); // a timer scans, and others are at work with the record
    setRecord(editor, 1, 0);
    // The editor's own search pays no regard to case, so each match is looked at.
    while (findNext(editor, text, FindDirection::Down, false))
        if (recordHolds(editor, text))
            return true;
    return false;
}

} // namespace ardiphon
