#pragma once

#include "language/TextChange.h"
#include "language/editor/TextBuffer.h"

#include <optional>

namespace ardiphon {

/// Turns the stretches that the view is about to change into lines that have changed. The view
/// tells only before a change, so what a change added is counted when the next one comes, or when
/// it is asked for. Takes a few calls of the view for each change, whatever the size of the text.
class ChangeRecorder
{
public:
    explicit ChangeRecorder(const TextBuffer &text) : m_text(text) {}

    /// \a removed bytes at \a at are about to go, or others are about to come there.
    void aboutToChange(qsizetype at, qsizetype removed);
    /// Another document is in the view now. What it changed was told as changes; this makes it one
    /// change even where both are empty.
    void documentReplaced();

    /// Whether there is a change that was not taken yet.
    bool isPending() const { return m_change.has_value() || m_open.has_value(); }
    /// All changes since the last call as one, and a revision more; none when there was no change.
    std::optional<TextChange> take();
    /// The revision of the text as it is now, with what was not taken yet.
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
