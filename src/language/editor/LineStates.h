#pragma once

#include "language/Tokenizer.h"
#include "language/editor/TextBuffer.h"

#include <deque>
#include <vector>

namespace ardiphon {

/// What each line begins in, and what a place far inside a very long line is in, without reading
/// the document again each time: it keeps checkpoints in the part of the text that was read so far.
/// Behind a change they are kept aside, and count again from the first one on that comes out as it
/// was; so a change costs no reading of the text between it and what is in view.
class LineStates
{
public:
    struct Checkpoint
    {
        qsizetype offset; ///< of a line's start, or between two tokens of a very long line
        LineState state;  ///< what the text there begins in
    };

    explicit LineStates(const TextBuffer &text) : m_text(text) {}

    /// To be called before \a removed bytes at \a at are removed, or others are inserted there.
    void aboutToChange(qsizetype at, qsizetype removed);
    /// What an existing line begins in.
    LineState at(int line);
    /// The last checkpoint at \a offset or before it.
    Checkpoint before(qsizetype offset);

private:
    qsizetype nextPlace(qsizetype from) const;
    void takeBack();

    const TextBuffer &m_text;
    std::vector<Checkpoint> m_checkpoints{{0, LineState::Text}};
    std::deque<Checkpoint> m_behind; ///< behind the last change, with offsets from the text's end
};

} // namespace ardiphon
