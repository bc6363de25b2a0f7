#pragma once

#include "piece/OrchestraWordReader.h"
#include "piece/PieceText.h"

namespace ardiphon {

/// Which sections of a text are read for their words; of the others only where they end.
struct WordSections
{
    bool hasOrchestra = true;
    bool hasScore = true;
};

/// Reads the words of a text line by line.
class PieceWordReader
{
public:
    /// \a text outlives it. The first line to be read is the first of the text.
    explicit PieceWordReader(const PieceText &text, WordSections sections = {});

    /// The next line to be read is \a line. Reads the lines above it as far as it takes to know
    /// what they leave open, which are at most a few hundred.
    void goTo(int line);
    int nextLine() const { return m_line; }
    bool atEnd() const { return m_line > m_text.lineCount(); }
    /// Reads the next line, which must be there. The words are valid until the next call
    /// or until a line of the text is asked for elsewhere.
    const PieceWords &readLine();
    /// The line that was read last, as long as its words are valid.
    QByteArrayView line() const { return m_bytes; }
    /// Of the next line, as far as the words tell it.
    const PieceState &state() const { return m_state; }

private:
    void readWords();

    const PieceText &m_text;
    const WordSections m_sections;
    int m_line = 1;
    PieceState m_state;
    OrchestraContext m_orchestra;
    OpenMacro m_scoreMacro;
    QByteArrayView m_bytes;
    PieceWords m_words;
};

} // namespace ardiphon
