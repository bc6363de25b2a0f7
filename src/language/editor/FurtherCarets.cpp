#include "language/editor/FurtherCarets.h"

#include "language/editor/TextBuffer.h"

#include <Qsci/qsciscintillabase.h>

#include <utility>
#include <vector>

namespace ardiphon {

using Sci = QsciScintillaBase;

bool FurtherCarets::areThere() const
{
    return m_view.SendScintilla(Sci::SCI_GETSELECTIONS) > 1 ||
           m_view.SendScintilla(Sci::SCI_SELECTIONISRECTANGLE) != 0;
}

void FurtherCarets::begin()
{
    m_view.SendScintilla(Sci::SCI_SETMULTIPLESELECTION, true);
    m_view.SendScintilla(Sci::SCI_SETADDITIONALSELECTIONTYPING, true);
    m_view.SendScintilla(Sci::SCI_SETMULTIPASTE, ulong(Sci::SC_MULTIPASTE_EACH));
}

void FurtherCarets::drop()
{
    if (!areThere())
        return;
    // Of a rectangle the library would tell the corners.
    const auto main = ulong(m_view.SendScintilla(Sci::SCI_GETMAINSELECTION));
    const long caret = m_view.SendScintilla(Sci::SCI_GETSELECTIONNCARET, main);
    const long anchor = m_view.SendScintilla(Sci::SCI_GETSELECTIONNANCHOR, main);
    // This ends a rectangle too; to set a selection would leave its shape.
    m_view.SendScintilla(Sci::SCI_SETEMPTYSELECTION, ulong(caret));
    m_view.SendScintilla(Sci::SCI_SETSELECTION, ulong(caret), anchor);
    settle();
}

void FurtherCarets::settle()
{
    if (areThere() || m_view.SendScintilla(Sci::SCI_GETMULTIPLESELECTION) == 0)
        return;
    m_view.SendScintilla(Sci::SCI_SETMULTIPLESELECTION, false);
    m_view.SendScintilla(Sci::SCI_SETADDITIONALSELECTIONTYPING, false);
    m_view.SendScintilla(Sci::SCI_SETMULTIPASTE, ulong(Sci::SC_MULTIPASTE_ONCE));
}

bool FurtherCarets::selectWord()
{
    const long caret = m_view.SendScintilla(Sci::SCI_GETCURRENTPOS);
    const long start = m_view.SendScintilla(Sci::SCI_WORDSTARTPOSITION, ulong(caret), 1L);
    const long end = m_view.SendScintilla(Sci::SCI_WORDENDPOSITION, ulong(caret), 1L);
    m_wholeWords = true;
    if (start < end)
        m_view.SendScintilla(Sci::SCI_SETSEL, ulong(start), end);
    return start < end;
}

bool FurtherCarets::addNextOccurrence()
{
    const long start = m_view.SendScintilla(Sci::SCI_GETSELECTIONSTART);
    const long end = m_view.SendScintilla(Sci::SCI_GETSELECTIONEND);
    if (start == end)
        return selectWord();
    if (!areThere()) {
        const long wordStart = m_view.SendScintilla(Sci::SCI_WORDSTARTPOSITION, ulong(start), 1L);
        const long wordEnd = m_view.SendScintilla(Sci::SCI_WORDENDPOSITION, ulong(start), 1L);
        m_wholeWords = m_wholeWords && wordStart == start && wordEnd == end;
    }
    QByteArray text(end - start, '\0');
    for (long i = start; i < end; ++i)
        text[i - start] = char(m_view.SendScintilla(Sci::SCI_GETCHARAT, ulong(i)));
    m_view.SendScintilla(Sci::SCI_SETSEARCHFLAGS,
                         ulong(Sci::SCFIND_MATCHCASE | (m_wholeWords ? Sci::SCFIND_WHOLEWORD : 0)));
    const std::pair<long, long> parts[] = {{end, m_view.SendScintilla(Sci::SCI_GETLENGTH)},
                                           {0, start}};
    for (auto [from, to] : parts) {
        for (;;) {
            m_view.SendScintilla(Sci::SCI_SETTARGETRANGE, ulong(from), to);
            const long found = m_view.SendScintilla(Sci::SCI_SEARCHINTARGET, uintptr_t(text.size()),
                                                    text.constData());
            if (found < 0)
                break;
            from = found + text.size();
            if (isSelected(found, from))
                continue;
            begin();
            m_view.SendScintilla(Sci::SCI_ADDSELECTION, ulong(from), found);
            m_view.SendScintilla(Sci::SCI_SCROLLRANGE, ulong(found), from);
            return true;
        }
    }
    return false;
}

bool FurtherCarets::isSelected(long start, long end) const
{
    const long count = m_view.SendScintilla(Sci::SCI_GETSELECTIONS);
    for (long i = 0; i < count; ++i) {
        if (m_view.SendScintilla(Sci::SCI_GETSELECTIONNSTART, ulong(i)) < end &&
            m_view.SendScintilla(Sci::SCI_GETSELECTIONNEND, ulong(i)) > start)
            return true;
    }
    return false;
}

/// The carets of a rectangle become carets without one.
void FurtherCarets::leaveRectangle()
{
    if (m_view.SendScintilla(Sci::SCI_SELECTIONISRECTANGLE) == 0)
        return;
    std::vector<std::pair<long, long>> ranges;
    const long count = m_view.SendScintilla(Sci::SCI_GETSELECTIONS);
    for (long i = 0; i < count; ++i)
        ranges.emplace_back(m_view.SendScintilla(Sci::SCI_GETSELECTIONNCARET, ulong(i)),
                            m_view.SendScintilla(Sci::SCI_GETSELECTIONNANCHOR, ulong(i)));
    m_view.SendScintilla(Sci::SCI_SETEMPTYSELECTION, ulong(ranges.front().first));
    m_view.SendScintilla(Sci::SCI_SETSELECTION, ulong(ranges.front().first), ranges.front().second);
    for (size_t i = 1; i < ranges.size(); ++i)
        m_view.SendScintilla(Sci::SCI_ADDSELECTION, ulong(ranges[i].first), ranges[i].second);
}

void FurtherCarets::replaceEach(const TextFor &text)
{
    const EditStep step(m_view);
    leaveRectangle();
    const long count = m_view.SendScintilla(Sci::SCI_GETSELECTIONS);
    for (long i = 0; i < count; ++i) {
        const auto number = ulong(i);
        const long start = m_view.SendScintilla(Sci::SCI_GETSELECTIONNSTART, number);
        const long end = m_view.SendScintilla(Sci::SCI_GETSELECTIONNEND, number);
        const QByteArray bytes = text(start, end);
        m_view.SendScintilla(Sci::SCI_SETTARGETRANGE, ulong(start), end);
        m_view.SendScintilla(Sci::SCI_REPLACETARGET, uintptr_t(bytes.size()), bytes.constData());
        const auto behind = long(start + bytes.size());
        m_view.SendScintilla(Sci::SCI_SETSELECTIONNCARET, number, behind);
        m_view.SendScintilla(Sci::SCI_SETSELECTIONNANCHOR, number, behind);
    }
}

} // namespace ardiphon
