#include "language/editor/Bookmarks.h"

#include <Qsci/qsciscintillabase.h>

namespace ardiphon {

using Sci = QsciScintillaBase;

void Bookmarks::setLine(int index, int line)
{
    if (!isSlot(index) || (line != -1 && !m_text.hasLine(line)))
        return;
    m_view.SendScintilla(Sci::SCI_MARKERDELETEALL, index);
    m_slots[index].handle = -1;
    m_slots[index].line = -1;
    if (line != -1)
        place(index, line);
    m_view.viewport()->update();
}

void Bookmarks::place(int index, int line)
{
    m_slots[index].handle =
        int(m_view.SendScintilla(Sci::SCI_MARKERADD, ulong(line - 1), long(index)));
}

int Bookmarks::line(int index) const
{
    if (!isSlot(index))
        return -1;
    const Slot &slot = m_slots[index];
    if (slot.handle == -1)
        return slot.line;
    const int line = int(m_view.SendScintilla(Sci::SCI_MARKERLINEFROMHANDLE, slot.handle)) + 1;
    // The view drops its markers when all text is deleted at once; line 1 took their lines' place.
    return std::max(line, 1);
}

void Bookmarks::setColors(int index, const LineColors &colors)
{
    if (!isSlot(index))
        return;
    m_slots[index].colors = colors;
    const int symbol = colors.back ? Sci::SC_MARK_BACKGROUND : Sci::SC_MARK_EMPTY;
    m_view.SendScintilla(Sci::SCI_MARKERDEFINE, ulong(index), long(symbol));
    if (colors.back)
        m_view.SendScintilla(Sci::SCI_MARKERSETBACK, ulong(index), long(colors.back->value));
    m_view.viewport()->update();
}

LineColors Bookmarks::colors(int index) const
{
    return isSlot(index) ? m_slots[index].colors : LineColors{};
}

LineColors Bookmarks::colorsOf(int line) const
{
    LineColors result;
    const auto marked = unsigned(m_view.SendScintilla(Sci::SCI_MARKERGET, line - 1));
    for (int index = 0; marked >> index && index < SlotCount; ++index) {
        const LineColors &own = m_slots[index].colors;
        if (!(marked >> index & 1))
            continue;
        result.back = own.back ? own.back : result.back;
        result.fore = own.fore ? own.fore : result.fore;
    }
    return result;
}

void Bookmarks::detach()
{
    for (int index = 0; index < SlotCount; ++index) {
        m_slots[index].line = line(index);
        m_slots[index].handle = -1;
    }
    m_view.SendScintilla(Sci::SCI_MARKERDELETEALL, -1);
}

void Bookmarks::attach()
{
    for (int index = 0; index < SlotCount; ++index) {
        if (m_text.hasLine(m_slots[index].line))
            place(index, m_slots[index].line);
    }
}

} // namespace ardiphon
