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
        const TextRange range{text.offsetOf({edit.line, edit.column}), endOf(edit)};
        if (range.start < behind || range.end < range.start)
            continue;
        behind = range.end;
        m_edits.push_back(
            {range, withLineEnds(edit.text.toUtf8(), text.lineEndKind()), edit.movesCaret});
    }
}

qsizetype RangeEdits::endOf(const EditorEdit &edit) const
{
    return m_text.offsetOf(edit.lines > 0 ? TextPosition{edit.line + edit.lines, edit.length}
                                          : TextPosition{edit.line, edit.column + edit.length});
}

void RangeEdits::carryOut(QsciScintillaBase &view, FoldedLines &folded)
{
    const std::vector<Hidden> hidden = hiddenLines(folded);
    replace(view);
    QList<LineRun> runs;
    for (const Hidden &each : hidden)
        runs.append({m_text.lineOf(moved(each.start)) + 1, m_text.lineOf(moved(each.end))});
    folded.hide(runs);
}

void RangeEdits::replace(QsciScintillaBase &view)
{
    const qsizetype caret = m_text.caret();
    const qsizetype anchor = view.SendScintilla(QsciScintillaBase::SCI_GETANCHOR);
    const EditStep step(view);
    // Lines that are moved are taken away first, as it is a removal that bookmarks are kept with
    // for an undo and a redo.
    const bool removesLast = m_edits.size() == 2 && m_edits[1].text.isEmpty();
    if (removesLast)
        replaceOne(m_edits[1], 0);
    qsizetype shift = 0;
    for (Edit &edit : m_edits) {
        if (!removesLast || &edit == m_edits.data())
            replaceOne(edit, shift);
        shift += edit.added;
    }
    view.SendScintilla(QsciScintillaBase::SCI_SETSELECTION, uintptr_t(moved(caret)),
                       intptr_t(moved(anchor)));
}

void RangeEdits::replaceOne(Edit &edit, qsizetype shift)
{
    const qsizetype end = edit.range.end + shift;
    edit.added = m_text.replace({edit.range.start + shift, end}, edit.text) - end;
}

/// What is hidden where something will change: a hidden line, or the line end of its header.
std::vector<RangeEdits::Hidden> RangeEdits::hiddenLines(const FoldedLines &folded) const
{
    std::vector<Hidden> hidden;
    if (folded.isNone())
        return hidden;
    int known = 0; // the last line that has been looked at
    for (const Edit &edit : m_edits) {
        const int last = m_text.lineOf(edit.range.end);
        for (int line = m_text.lineOf(edit.range.start); line <= last; ++line) {
            const bool isTouched = folded.isHidden(line) || edit.range.end > m_text.lineEnd(line);
            const int header = folded.headerOf(line);
            const LineRun run = isTouched && line > known ? folded.under(header) : LineRun();
            if (run.isEmpty())
                continue;
            hidden.push_back({m_text.lineEnd(header), m_text.lineEnd(run.last)});
            line = known = run.last;
        }
    }
    return hidden;
}

/// Whether the one takes whole lines away that the other puts in. The line end that parts them from
/// the others may be on either side.
bool RangeEdits::moveLines(const Edit &removal, const Edit &insertion) const
{
    const QByteArray end = withLineEnds("\n", m_text.lineEndKind());
    const auto lines = [&](QByteArrayView text) {
        const QByteArray all = withLineEnds(text, m_text.lineEndKind());
        return all.startsWith(end) ? all.sliced(end.size()) + end : all;
    };
    return removal.text.isEmpty() && insertion.range.start == insertion.range.end &&
           insertion.text.contains(end) &&
           lines(m_text.bytes(removal.range.start, removal.range.end)) == lines(insertion.text);
}

RangeEdits::MovedLines RangeEdits::movedLines() const
{
    if (m_edits.size() != 2)
        return {};
    const bool isUp = m_edits[1].text.isEmpty();
    const Edit &removal = m_edits[isUp ? 1 : 0];
    const Edit &insertion = m_edits[isUp ? 0 : 1];
    if (!moveLines(removal, insertion))
        return {};
    // Where a line end stands before the lines, they begin on the line below.
    const auto first = [this](qsizetype offset) {
        const int line = m_text.lineOf(offset);
        return m_text.lineStart(line) == offset ? line : line + 1;
    };
    const int from = first(removal.range.start);
    const int count = m_text.lineOf(removal.range.end) - m_text.lineOf(removal.range.start);
    const int to = first(insertion.range.start) - (isUp ? 0 : count);
    return {{from, from + count - 1}, to - from};
}

/// Where a place will be: in a text that is replaced, as far behind its beginning as before.
qsizetype RangeEdits::moved(qsizetype offset) const
{
    qsizetype shift = 0;
    for (const Edit &edit : m_edits) {
        if (offset < edit.range.start || (offset == edit.range.start && !edit.movesCaret))
            break;
        if (offset < edit.range.end)
            return edit.range.start + shift + characterAt(edit.text, offset - edit.range.start);
        shift += edit.added;
    }
    return offset + shift;
}

} // namespace ardiphon
