#pragma once

#include "language/LineRun.h"
#include "piece/Piece.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>

#include <optional>

namespace ardiphon {

/// An argument of a call, as it is written.
struct CalledArgument
{
    enum class Form : quint8 { Number, Text, Name, Other };

    QByteArray text; ///< of a literal text without its quotes
    Form form = Form::Other;
    PiecePlace place; ///< of its first token

    bool isLiteral() const { return form == Form::Number || form == Form::Text; }
};

/// An opcode that is called, or what stands where only an opcode can stand.
struct OpcodeCall
{
    QByteArray name;
    PiecePlace place; ///< of the name
    int body = -1;    ///< the index of the body that it is in; -1 for the header
    QList<CalledArgument> arguments;
};

/// A name of an orchestra that is no opcode where it stands.
struct VariableUse
{
    QByteArray name;
    PiecePlace place;
    int body = -1;
    int statement = 0; ///< counted from 0
    bool isWritten = false;
};

struct InstrumentHead
{
    QByteArray name; ///< or its number, without zeros in front
    PiecePlace place;
};

/// An instrument or a user-defined opcode.
struct CheckedBody
{
    LandmarkKind kind = LandmarkKind::Instrument;
    QList<InstrumentHead> heads; ///< of an instrument
    LineRun lines;
    qsizetype firstName = 0; ///< among the names of the orchestra
    bool usesMacro = false;
    bool hasBranches = false; ///< of the preprocessor
};

/// A place where the orchestra goes on elsewhere, or the place itself.
struct JumpFact
{
    QByteArray label;
    int body = -1;
    int statement = 0;
    bool isLabel = false;
    bool isCertain = false; ///< a jump that is always taken at init time
};

/// What the checks look for in an orchestra, read once.
struct OrchestraFacts
{
    QList<CheckedBody> bodies;
    QHash<QByteArray, QList<int>> instruments; ///< the bodies that have a name or a number
    QSet<QByteArray> numbersOfNamed;           ///< that the compiler gives instruments with names
    QList<OpcodeCall> calls;
    QList<VariableUse> names;
    QList<JumpFact> jumps;
    QSet<QByteArray> called;    ///< the names of all calls
    QSet<QByteArray> texts;     ///< all literal texts, without quotes
    QByteArray macroText;       ///< what the macros stand for, in small letters
    bool hasInclude = false;    ///< so that there may be more than is read here
    bool hasHiddenHead = false; ///< an instrument that a macro names or makes
    bool hasCode = false;

    /// Whether one of \a opcodes is called, or stands in a macro.
    bool callsAny(std::initializer_list<const char *> opcodes) const;
    /// Whether code may be added while the piece is played, or stands elsewhere.
    bool hasMore() const;
};

/// A note of a score, as it is written.
struct CheckedNote
{
    PiecePlace place;       ///< of its instrument
    PiecePlace more;        ///< from its fourth field on; empty where there is none
    QByteArray instrument;  ///< a number or a name without sign and fraction; "" for none known
    QByteArray voice;       ///< the same with its fraction
    bool isCarried = false; ///< it plays what the line above plays
    bool isSure = false;    ///< nothing but literal fields, and played once
    int fields = 0;
    int section = 0;
    std::optional<double> start;
    std::optional<double> duration;
};

/// What the checks look for in a score.
struct ScoreFacts
{
    QList<CheckedNote> notes;
    QSet<QByteArray> tables; ///< by number, that f statements make
    bool hasHiddenNote = false;
    bool hasHiddenTable = false;
    bool hasStatements = false;
    bool isWhole = true; ///< no file is included, no program makes it, and it is not too long
};

/// All that the checks look at.
struct PieceFacts
{
    const Piece &piece;
    OrchestraFacts orchestra;
    ScoreFacts score;
    QByteArray options;          ///< of a unified file
    bool hasForeignPart = false; ///< sections that another program reads
    bool hasMidiFile = false;

    /// Whether the orchestra has an instrument of that name or number.
    bool hasInstrument(const QByteArray &name) const
    {
        return orchestra.instruments.contains(name) || orchestra.numbersOfNamed.contains(name);
    }
    /// Whether \a name is an opcode of the language or of the piece.
    bool isOpcode(const QByteArray &name) const
    {
        return piece.isOpcode(name) || piece.definesOpcode(name);
    }
};

/// A longer score is read so far.
inline constexpr int MostCheckedScoreLines = 200'000;

/// Reads the orchestra and the score of \a piece, all of which has been read.
PieceFacts factsOf(const Piece &piece);

/// The parts of it: the lines \a lines of \a text.
OrchestraFacts orchestraFacts(const Piece &piece, const PieceText &text, LineRun lines);
ScoreFacts scoreFacts(const PieceText &text, LineRun lines);

/// \a written without zeros in front, where it is a whole number; else as it is.
QByteArray plainNumber(QByteArrayView written);

} // namespace ardiphon
