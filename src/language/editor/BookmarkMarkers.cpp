#include "language/editor/BookmarkMarkers.h"

#include "language/DocumentText.h"

#include <Qsci/qsciscintillabase.h>

#include <algorithm>

namespace ardiphon {

using Sci = QsciScintillaBase;

BookmarkMarkers::BookmarkMarkers(QsciScintillaBase &view, const TextBuffer &text)
    : m_view(view), m_text(text)
{
    QObject::connect(&view, &Sci::SCN_MODIFIED, &view,
                     [this](int start, int type, const char *, int length) {
                         aboutToChange(type, {start, start + length});
                     });
}

void BookmarkMarkers::setLine(int index, int line)
{
    if (!isSlot(index) || (line != -1 && !m_text.hasLine(line)))
        return;
    settle();
    ++m_slots[index].setting;
    removeMarkers(1U << index);
    m_slots[index].handle = -1;
    m_slots[index].line = -1;
    if (line != -1)
        place(index, line);
    m_view.viewport()->update();
}

/// Deletes the markers of these kinds, a bit for each slot, in one pass over the lines.
void BookmarkMarkers::removeMarkers(unsigned marks)
{
    const auto next = [&](long from) {
        return m_view.SendScintilla(Sci::SCI_MARKERNEXT, ulong(from), long(marks));
    };
    for (long line = next(0); line >= 0; line = next(line + 1)) {
        const auto marked = marks & unsigned(m_view.SendScintilla(Sci::SCI_MARKERGET, ulong(line)));
        for (int index = 0; index < SlotCount; ++index) {
            if (marked >> index & 1)
                m_view.SendScintilla(Sci::SCI_MARKERDELETE, ulong(line), long(index));
        }
    }
}

void BookmarkMarkers::place(int index, int line)
{
    m_slots[index].handle =
        int(m_view.SendScintilla(Sci::SCI_MARKERADD, ulong(line - 1), long(index)));
}

int BookmarkMarkers::line(int index)
{
    if (!isSlot(index))
        return -1;
    settle();
    const Slot &slot = m_slots[index];
    if (slot.handle == -1)
        return slot.line;
    const int line = int(m_view.SendScintilla(Sci::SCI_MARKERLINEFROMHANDLE, slot.handle)) + 1;
    // The view drops its markers when all text is deleted at once; line 1 took their lines' place.
    return std::max(line, 1);
}

void BookmarkMarkers::setColors(int index, const LineColors &colors)
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

LineColors BookmarkMarkers::colors(int index) const
{
    return isSlot(index) ? m_slots[index].colors : LineColors{};
}

LineColors BookmarkMarkers::colorsOf(int line)
{
    settle();
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

/// The view reports a change before it is made, each as one step of the history.
void BookmarkMarkers::aboutToChange(int type, TextRange range)
{
    settle();
    if (type & Sci::SC_PERFORMED_USER)
        m_deletions.erase(m_deletions.lower_bound(m_step), m_deletions.end());
    m_step += type & Sci::SC_PERFORMED_UNDO ? -1 : 1;
    const int step = type & Sci::SC_PERFORMED_UNDO ? m_step : m_step - 1;
    if (type & Sci::SC_MOD_BEFOREDELETE)
        aboutToDelete(step, range);
    else
        aboutToInsert(step);
}

void BookmarkMarkers::aboutToDelete(int step, TextRange range)
{
    const int firstLine = m_text.lineOf(range.start);
    const int lastLine = m_text.lineOf(range.end);
    const bool all = range.end - range.start == m_text.size();
    if (firstLine == lastLine && !all)
        return;
    const auto places = placesOn(firstLine, lastLine);
    if (!places.empty())
        m_deletions[step] = {range.start, firstLine, hashOf(range), places};
    // The view drops its markers when all text is deleted at once; line 1 takes their lines' place.
    if (all)
        makeDueOnLineOne();
}

void BookmarkMarkers::aboutToInsert(int step)
{
    // The only line of an empty document has nothing that could be moved.
    if (m_text.size() == 0)
        makeDueOnLineOne();
    if (const auto deletion = m_deletions.extract(step)) {
        const auto &places = deletion.mapped().places;
        m_due.insert(m_due.end(), places.begin(), places.end());
    }
}

void BookmarkMarkers::makeDueOnLineOne()
{
    for (int index = 0; index < SlotCount; ++index) {
        if (m_slots[index].handle != -1)
            m_due.push_back({index, 1, m_slots[index].setting});
    }
}

std::vector<BookmarkMarkers::Place> BookmarkMarkers::placesOn(int firstLine, int lastLine) const
{
    std::vector<Place> places;
    if (std::none_of(m_slots.begin(), m_slots.end(), [](const Slot &s) { return s.handle != -1; }))
        return places;
    for (int line = firstLine; line <= lastLine; ++line) {
        const auto marked = unsigned(m_view.SendScintilla(Sci::SCI_MARKERGET, line - 1));
        for (int index = 0; marked >> index && index < SlotCount; ++index) {
            if (marked >> index & 1)
                places.push_back({index, line, m_slots[index].setting});
        }
    }
    return places;
}

/// The same for the same text, whatever its line ends.
std::size_t BookmarkMarkers::hashOf(TextRange range) const
{
    return qHash(withLineEnds(m_text.bytes(range.start, range.end), LineEnd::Lf));
}

void BookmarkMarkers::inserted(TextRange range)
{
    if (m_deletions.empty())
        return;
    const std::size_t text = hashOf(range);
    const int line = m_text.lineOf(range.start);
    const auto same = [&](const auto &deletion) {
        return deletion.second.start == range.start && deletion.second.text == text;
    };
    const auto found = std::find_if(m_deletions.rbegin(), m_deletions.rend(), same);
    if (found == m_deletions.rend())
        return;
    for (const Place &place : found->second.places)
        m_due.push_back({place.index, place.line - found->second.firstLine + line, place.setting});
}

std::vector<std::pair<int, int>> BookmarkMarkers::slotsOn(const LineRun &lines)
{
    settle();
    std::vector<std::pair<int, int>> found;
    for (const Place &place : placesOn(lines.first, lines.last))
        found.emplace_back(place.index, place.line);
    return found;
}

void BookmarkMarkers::carry(int index, int line)
{
    settle();
    removeMarkers(1U << index);
    place(index, line);
}

/// Sets the slots that are due, once the text is in place. If a slot has several places, the last
/// counts.
void BookmarkMarkers::settle()
{
    if (m_due.empty())
        return;
    std::map<int, int> lines;
    unsigned marks = 0;
    for (const Place &due : std::exchange(m_due, {})) {
        if (due.setting == m_slots[due.index].setting && m_text.hasLine(due.line)) {
            lines[due.index] = due.line;
            marks |= 1U << due.index;
        }
    }
    removeMarkers(marks);
    for (const auto &[index, line] : lines)
        place(index, line);
}

void BookmarkMarkers::forgetHistory()
{
    settle();
    m_deletions.clear();
}

void BookmarkMarkers::detach()
{
    settle();
    for (int index = 0; index < SlotCount; ++index) {
        m_slots[index].line = line(index);
        m_slots[index].handle = -1;
    }
    m_view.SendScintilla(Sci::SCI_MARKERDELETEALL, -1);
}

void BookmarkMarkers::attach()
{
    forgetHistory();
    for (int index = 0; index < SlotCount; ++index) {
        if (m_text.hasLine(m_slots[index].line))
            place(index, m_slots[index].line);
    }
}

} // namespace ardiphon
