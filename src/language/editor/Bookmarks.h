#pragma once

#include "language/editor/Styling.h"

#include <array>

namespace ardiphon {

/// The bookmark slots of the control. Each is a marker of the view, which follows the edits.
class Bookmarks
{
public:
    static constexpr int SlotCount = 32; ///< as many kinds of marker as the view has

    Bookmarks(QsciScintillaBase &view, const TextBuffer &text) : m_view(view), m_text(text) {}

    /// As the contract's; an index or a line that does not exist changes nothing.
    void setLine(int index, int line);
    int line(int index) const;
    void setColors(int index, const LineColors &colors);
    LineColors colors(int index) const;

    /// The colours of a line with bookmarks; of several the highest slot wins.
    LineColors colorsOf(int line) const;

    /// For a document that is replaced as a whole: the slots keep their line numbers.
    void detach();
    void attach();

private:
    struct Slot
    {
        LineColors colors;
        int handle = -1; ///< of the marker
        int line = -1;   ///< while there is no marker
    };

    static bool isSlot(int index) { return index >= 0 && index < SlotCount; }
    void place(int index, int line);

    QsciScintillaBase &m_view;
    const TextBuffer &m_text;
    std::array<Slot, SlotCount> m_slots;
};

} // namespace ardiphon
