#pragma once

#include "language/ColoredRange.h"
#include "language/editor/TextBuffer.h"

#include <QHash>

namespace ardiphon {

/// The lines that are coloured as a whole, and not by their tokens, while they are about to be
/// drawn.
class LineRanges
{
public:
    explicit LineRanges(const TextBuffer &text) : m_text(text) {}

    void setColors(LineColorsCallback callback) { m_colors = std::move(callback); }

    /// Lines from \a first on are about to be coloured, and until end().
    void begin(int first);
    void end() { m_reader = nullptr; }
    /// Whether these have ranges; else their tokens' colours hold.
    bool areOn() const { return m_reader != nullptr; }

    /// Reads the next line, some time below the one before. Ranges beyond \a length bytes of it
    /// can be asked for again.
    ColoredRanges read(int line, qsizetype length);
    /// What was read of a line that is longer than that.
    ColoredRanges known(int line) const { return m_long.value(line); }

private:
    const TextBuffer &m_text;
    LineColorsCallback m_colors;
    LineReader m_reader;
    QHash<int, ColoredRanges> m_long;
};

} // namespace ardiphon
