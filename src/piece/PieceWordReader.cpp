#include "piece/PieceWordReader.h"

#include "piece/PieceTags.h"
#include "piece/PlainLine.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int LinesOfAStatement = 128; ///< that are looked at above a line that goes on

} // namespace

PieceWordReader::PieceWordReader(const PieceText &text, WordSections sections)
    : m_text(text), m_sections(sections), m_state(text.stateAt(1))
{
}

void PieceWordReader::goTo(int line)
{
    m_orchestra = {};
    m_scoreMacro = {};
    m_line = line;
    m_state = m_text.stateAt(line);
    if (m_state.code == CodeState::Code && m_state.continuation == Continuation::None)
        return;
    m_line = std::max(1, line - LinesOfAStatement);
    m_state = m_text.stateAt(m_line);
    while (m_line < line)
        readLine();
}

const PieceWords &PieceWordReader::readLine()
{
    m_words.clear();
    const QByteArrayView line = m_text.line(m_line++);
    m_bytes = line.first(std::min(line.size(), PieceText::LongestLine));
    readWords();
    return m_words;
}

void PieceWordReader::readWords()
{
    if (m_text.role() == DocumentRole::Csd) {
        if (const std::optional<PieceTag> tag = pieceTag(m_bytes)) {
            m_state = PieceState();
            m_state.section = tag->section;
            m_orchestra = {};
            m_scoreMacro = {};
            return;
        }
    }
    if (m_state.section == PieceSection::Orchestra && m_sections.hasOrchestra)
        readOrchestraWords(m_bytes, m_state, m_orchestra, m_words);
    else if (m_state.section == PieceSection::Score && m_sections.hasScore)
        readScoreWords(m_bytes, m_state.code, m_scoreMacro, m_words);
    else if (isPlain(m_state.section))
        m_state.code = behindPlainLine(m_bytes, m_state.code);
}

} // namespace ardiphon
