#pragma once

#include "language/LineRun.h"
#include "language/editor/Styling.h"

#include <array>
#include <map>
#include <utility>
#include <vector>

namespace ardiphon {

/// The bookmark slots of the control. Each is a marker of the view, which follows the edits. When a
/// deletion removes the line of a slot, the line is remembered with that step of the history, and
/// an undo puts the slot back; a redo that brings text back does the same.
class BookmarkMarkers
{
public:
    static constexpr int SlotCount = 32; ///< as many kinds of marker as the view has

    BookmarkMarkers(QsciScintillaBase &view, const TextBuffer &text);

    /// As LEditOCX::SetBookmarkLine; an index or a line that does not exist changes nothing.
    void setLine(int index, int line);
    int line(int index);
    void setColors(int index, const LineColors &colors);
    LineColors colors(int index) const;

    /// The colours of a line with bookmarks; of several slots the highest one decides.
    LineColors colorsOf(int line);

    /// To be called when \a range was inserted as a copy of another view's text. Slots that were on
    /// these lines when exactly this text was deleted there are put back.
    void inserted(TextRange range);

    /// The slots that are on these lines, as (slot, line).
    std::vector<std::pair<int, int>> slotsOn(const LineRun &lines);
    /// Puts a slot on \a line, as an edit that is undone together with this has moved its line.
    void carry(int index, int line);

    /// To be called when the history was cleared: no step of it can be undone any more.
    void forgetHistory();

    /// For a document that is replaced as a whole: the slots keep their line numbers.
    void detach();
    void attach();

private:
    struct Slot
    {
        LineColors colors;
        int handle = -1; ///< of the marker
        int line = -1;   ///< while there is no marker
        int setting = 0; ///< how often the slot was set
    };
    /// Where a slot was, or is to be; it counts only until the slot is set again.
    struct Place
    {
        int index;
        int line;
        int setting;
    };
    /// What a deletion removed.
    struct Deletion
    {
        qsizetype start;
        int firstLine;
        std::size_t text; ///< the hash of what was deleted
        std::vector<Place> places;
    };

    static bool isSlot(int index) { return index >= 0 && index < SlotCount; }
    void removeMarkers(unsigned marks);
    void place(int index, int line);
    void aboutToChange(int type, TextRange range);
    void aboutToDelete(int step, TextRange range);
    void aboutToInsert(int step);
    void makeDueOnLineOne();
    std::vector<Place> placesOn(int firstLine, int lastLine) const;
    std::size_t hashOf(TextRange range) const;
    void settle();

    QsciScintillaBase &m_view;
    const TextBuffer &m_text;
    std::array<Slot, SlotCount> m_slots;
    std::map<int, Deletion> m_deletions; ///< by the step of the history that is undone or redone
    int m_step = 0;                      ///< the next step of the history
    std::vector<Place> m_due;            ///< for the text as it is after the change being made
};

} // namespace ardiphon
