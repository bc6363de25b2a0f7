#include "language/editor/RangeEdits.h"

#include <Qsci/qsciscintillabase.h>

#include <algorithm>

namespace ardiphon {

namespace {

/// \a offset, or where the character begins that it is in; the end of \a utf8 at most.
qsizetype characterAt(const QByteArray &utf8, qsizetype offset)
{
    offset = std::min(offset, utf8.size());
    while (offset > 0 && offset < utf8.size() && (utf8[offset] & 0xc0) == 0x80)
        --offset;
    return offset;
}

} // namespace

RangeEdits::RangeEdits(TextBuffer &text, const std::vector<EditorEdit> &edits) : m_text(text)
{
    m_edits.reserve(edits.size());
    qsizetype behind = 0;
    for (const EditorEdit &edit : edits) {
        if (!text.hasLine(edit.line) || edit.column < 0 || edit.length < 0)
            continue;
        const TextRange range{text.offsetOf({edit.line, edit.column}),
                              text.offsetOf({edit.line, edit.column + edit.length})};
        if (range.start < behind)
            continue;
        behind = range.end;
        m_edits.push_back({range, edit.text.toUtf8()});
    }
}

QList<LineRun> RangeEdits::hiddenLines(const FoldedLines &folded) const
{
    QList<LineRun> hidden;
    if (folded.isNone())
        return hidden;
    for (const Edit &edit : m_edits) {
        const int line = m_text.lineOf(edit.range.start);
        if (folded.isHidden(line) && (hidden.isEmpty() || !hidden.last().contains(line)))
            hidden.append(folded.under(folded.headerOf(line)));
    }
    return hidden;
}

void RangeEdits::carryOut(QsciScintillaBase &view)
{
    const qsizetype caret = moved(m_text.caret());
    const qsizetype anchor = moved(view.SendScintilla(QsciScintillaBase::SCI_GETANCHOR));
    const EditStep step(view);
    qsizetype shift = 0;
    for (const Edit &edit : m_edits) {
        m_text.replace({edit.range.start + shift, edit.range.end + shift}, edit.text);
        shift += edit.text.size() - (edit.range.end - edit.range.start);
    }
    view.SendScintilla(QsciScintillaBase::SCI_SETSELECTION, uintptr_t(caret), intptr_t(anchor));
}

/// Where a place will be: in a text that is replaced, as far behind its beginning as before.
qsizetype RangeEdits::moved(qsizetype offset) const
{
    qsizetype shift = 0;
    for (const Edit &edit : m_edits) {
        const qsizetype length = edit.range.end - edit.range.start;
        if (offset <= edit.range.start)
            break;
        if (offset < edit.range.end)
            return edit.range.start + shift + characterAt(edit.text, offset - edit.range.start);
        shift += edit.text.size() - length;
    }
    return offset + shift;
}

} // namespace ardiphon
