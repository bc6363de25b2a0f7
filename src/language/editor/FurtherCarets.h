#pragma once

#include <QByteArray>

#include <functional>

class QsciScintillaBase;

namespace ardiphon {

/// Carets and selections besides the one that the contract speaks of: of further occurrences of a
/// text, or one for each line of a rectangle. The view takes keys for all of them only while there
/// are several, so that nothing differs while there is one.
class FurtherCarets
{
public:
    explicit FurtherCarets(QsciScintillaBase &view) : m_view(view) {}

    bool areThere() const;
    /// From now on there may be several.
    void begin();
    /// Leaves the caret and the selection of the contract.
    void drop();
    /// To be called when something may have left one.
    void settle();

    /// Selects the word at the caret, or what is selected already once more: the next place that
    /// has it, in the same case, after the text's end from its start. Whether there is one.
    bool addNextOccurrence();
    /// Replaces each selection by what \a text gives for it, a range in bytes, as one step of
    /// history; each caret ends behind it.
    using TextFor = std::function<QByteArray(long start, long end)>;
    void replaceEach(const TextFor &text);

private:
    bool selectWord();
    void leaveRectangle();
    bool isSelected(long start, long end) const;

    QsciScintillaBase &m_view;
    bool m_wholeWords = false; ///< the text was found as the word at the caret
};

} // namespace ardiphon
