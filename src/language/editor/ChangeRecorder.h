#pragma once

#include "language/TextChange.h"
#include "language/editor/TextBuffer.h"

#include <optional>

namespace ardiphon {

/// Turns the ranges that the view is about to change into lines that have changed. The view reports
/// a change only before it makes it, so the lines that were added are counted when the next change
/// comes, or when a caller asks. Takes a few calls of the view for each change, whatever the size
/// of the text.
class ChangeRecorder
{
public:
    explicit ChangeRecorder(const TextBuffer &text) : m_text(text) {}

    /// To be called before \a removed bytes at \a at are removed, or others are inserted there.
    void aboutToChange(qsizetype at, qsizetype removed);
    /// To be called when another document is in the view. Its changes were reported like any
    /// others; this makes it a change even where both documents are empty.
    void documentReplaced();

    /// Whether there is a change that take() has not returned yet.
    bool isPending() const { return m_change.has_value() || m_open.has_value(); }
    /// All changes since the last call as one, and a revision more; none when there was no change.
    std::optional<TextChange> take();
    /// The revision of the text as it is now, with the changes that take() has not returned yet.
    quint64 revision() const { return m_taken + (isPending() ? 1 : 0); }

private:
    /// A change that the view is making.
    struct Open
    {
        int line = 1;
        int linesTouched = 1;
        int linesBefore = 1; ///< of the whole text
    };

    void close();

    const TextBuffer &m_text;
    std::optional<TextChange> m_change;
    std::optional<Open> m_open;
    quint64 m_taken = 0;
};

} // namespace ardiphon
