#pragma once

#include "piece/Piece.h"

#include <QStringList>

#include <optional>

namespace ardiphon {

/// The call of an opcode in whose arguments a caret stands.
struct CallAtCaret
{
    enum class Form : quint8 {
        Statement, ///< ares oscili xamp, xcps
        Function,  ///< oscili:a(.5, 440)
    };

    QByteArray name;
    PiecePlace place; ///< of the name
    Form form = Form::Statement;
    int argument = 0;          ///< the one at the caret, from 0
    QStringList arguments;     ///< as they are written, those behind the caret too
    QStringList outputs;       ///< what takes the outputs, or the type that is asked for, as "a"
    bool knowsOutputs = false; ///< that these are all

    friend bool operator==(const CallAtCaret &, const CallAtCaret &) = default;
};

/// The innermost call with the caret at \a column, in characters from 0, of \a line of \a text, a
/// line of the orchestra. None in a comment or in the text of a macro, and in the name itself.
/// Reads the lines of the statement, 32 above and 16 below at most.
std::optional<CallAtCaret> callAtCaret(const Piece &piece, const PieceText &text, int line,
                                       int column);

/// A field of a statement of the score.
struct ScoreFieldAtCaret
{
    char letter = 'i';
    int number = 1; ///< from 1, as in p1
    int start = 0;  ///< of the field, in bytes; where there is none yet, that of the caret
    int length = 0;

    friend bool operator==(const ScoreFieldAtCaret &, const ScoreFieldAtCaret &) = default;
};

/// The field at \a column of \a line of the score, or the one that would be typed there; of notes
/// alone (i, d and q). None before the first field and in a comment.
std::optional<ScoreFieldAtCaret> scoreFieldAtCaret(const PieceText &text, int line, int column);

} // namespace ardiphon
