#pragma once

#include "check/CompilerMessage.h"
#include "check/OpenBlocks.h"
#include "language/LineRun.h"
#include "piece/Piece.h"

#include <optional>

namespace ardiphon {

/// Lines of a piece as the compiler was given them.
struct CheckedLines
{
    QString fileName;    ///< of the file that has them, without its folder
    LineRun lines;       ///< of the text
    int firstNumber = 1; ///< the number of the first of them in the file
};

/// Finds the places of the text that messages of the compiler mean. The lines that it names are
/// wrong behind labels, comments over lines, macros over lines and continued lines, so what it
/// quotes decides, and of several such places the one that is nearest to the line.
class MessagePlaces
{
public:
    /// \a text, which has the orchestra, outlives it, and is read to its end. \a isOpcode tells of
    /// those of the language and of the piece.
    MessagePlaces(const PieceText &text, const CheckedLines &orchestra, IsOpcode isOpcode)
        : m_text(text), m_orchestra(orchestra), m_isOpcode(std::move(isOpcode))
    {
    }

    /// Whether \a message is about a file that the orchestra includes.
    bool isElsewhere(const CompilerMessage &message) const;
    /// A part of one line, which may be empty where the line is.
    PiecePlace placeOf(const CompilerMessage &message) const;
    /// What is not ended where a message finds that something cannot stand, or that the text is at
    /// its end.
    std::optional<OpenBlock> openBlock(const CompilerMessage &message) const;
    /// The first word before a ( in \a line that is no opcode.
    std::optional<PiecePlace> unknownFunction(int line) const;
    /// All code of \a line.
    PiecePlace wholeLine(int line) const;
    /// The text at a place.
    QString textAt(const PiecePlace &place) const;

private:
    struct Match
    {
        int line = 0;
        int tokenStart = 0; ///< in bytes
        int tokenLength = 0;
        int tier = 0; ///< the lower the surer
    };

    std::optional<Match> matchIn(const CompilerMessage &message, const QByteArray &quoted, int line,
                                 const class CodeLine &code) const;
    std::optional<Match> bestMatch(const CompilerMessage &message) const;
    int expectedLine(const CompilerMessage &message) const;
    std::optional<PiecePlace> includeOf(const QString &file) const;
    PiecePlace placeIn(int line, int start, int length) const;
    int unknownFunctionIn(const class CodeLine &code) const;

    const PieceText &m_text;
    const CheckedLines m_orchestra;
    const IsOpcode m_isOpcode;
};

} // namespace ardiphon
