#include "piece/PieceOccurrences.h"

#include "piece/PieceWordReader.h"

#include <algorithm>

namespace ardiphon {

QList<PiecePlace> occurrencesOf(const Piece &, const PieceSymbol &symbol, const PieceText &text,
                                LineRun within)
{
    QList<PiecePlace> places;
    LineRun lines{std::max(1, within.first), std::min(within.last, text.lineCount())};
    if (symbol.scope == SymbolScope::Body) {
        lines.first = std::max(lines.first, symbol.body.first);
        lines.last = std::min(lines.last, symbol.body.last);
    }
    if (symbol.scope == SymbolScope::Word || lines.first > lines.last)
        return places;
    PieceWordReader reader(text);
    reader.goTo(lines.first);
    for (int line = lines.first; line <= lines.last; ++line) {
        for (const PieceWord &word : reader.readLine()) {
            if (!isWordOf(symbol, word, text.role(), line))
                continue;
            const int column = charactersOf(reader.line(), word.start);
            places.append(
                {text.role(), line, column, charactersOf(reader.line(), word.end()) - column});
        }
    }
    return places;
}

} // namespace ardiphon
