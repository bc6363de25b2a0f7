#include "piece/MeaningReader.h"

#include "piece/PieceText.h"

namespace ardiphon {

MeaningRanges MeaningReader::read(int line, QByteArrayView bytes)
{
    if (line != m_next)
        m_state = m_text.stateAt(line);
    m_next = line + 1;
    return meaningsOf(bytes, m_text.role(), m_state, m_words);
}

} // namespace ardiphon
