#pragma once

#include "piece/MeaningColours.h"

namespace ardiphon {

class PieceText;

/// Reads the lines of a view from the first that is to be drawn downwards. What is above a line is
/// asked of the model for the first one, and again only where lines are left out.
class MeaningReader
{
public:
    /// \a text outlives it: the text that the view shows, or of which it shows a copy.
    MeaningReader(const PieceText &text, const MeaningWords &words) : m_text(text), m_words(words)
    {
    }

    /// What the parts of \a line are, of which the view has the bytes \a bytes; see meaningsOf().
    MeaningRanges read(int line, QByteArrayView bytes);

private:
    const PieceText &m_text;
    const MeaningWords m_words;
    int m_next = 0; ///< the line that m_state is for
    PieceState m_state;
};

} // namespace ardiphon
