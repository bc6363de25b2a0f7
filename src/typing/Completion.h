#pragma once

#include "piece/PieceText.h"
#include "typing/NameMatch.h"

#include <QString>

namespace ardiphon {

/// What a suggestion is.
enum class CompletionKind : quint8 {
    Opcode,
    UserOpcode,
    Word, ///< of the language, as if or #include
    Variable,
    PField,
    Macro,
    Label,
    Instrument,
    Table,
    Channel,
    Gen,
    Statement, ///< of the score
    Tag,
    Option,
    File,
    Snippet,
    Closing, ///< of what is open: a bracket, quotes, an instrument
};

/// As "opcode" or "p-field".
QString completionKindText(CompletionKind kind);

/// One row of suggestions.
struct Completion
{
    CompletionKind kind = CompletionKind::Word;
    QString name;                     ///< what is shown, and what is typed for it
    QString text;                     ///< what is put into the text; the name where it is empty
    QString form;                     ///< its signature, or what else says in a line what it is
    QString sentence;                 ///< the rest of what is to be said of it
    int prefix = 0;                   ///< how many letters of a variable's name tell its type
    const PieceText *where = nullptr; ///< of a name whose form is its line there
    int line = 0;
    int snippet = -1; ///< of a snippet its number among them all
    int record = 0;   ///< of an opcode of the language, which has form and sentence there
    int fit = 0;      ///< how well it suits the place
    int uses = 0;     ///< how often it stands near the caret
    MatchGrade grade = MatchGrade::Scattered;
    int score = 0;           ///< of the match
    int order = 0;           ///< in which it was found
    bool isAppended = false; ///< comes behind what is typed, and not in its place

    const QString &taken() const { return text.isEmpty() ? name : text; }
};

/// What a match by letters that are only somewhere in the name takes from the fit: they were rarely
/// meant for it.
inline constexpr int ScatteredCost = 5;

/// A line of a text as a form: its beginning, with single blanks.
QString formOfLine(const PieceText &text, int line);

/// Whether \a first is the better suggestion: what is typed in full; what suits the place better;
/// a name that the letters begin, or whose words they begin; what the piece uses more often; what
/// matches better; what is shorter; and then by letters. With nothing typed, what was found first.
bool isBetter(const Completion &first, const Completion &second);

} // namespace ardiphon

Q_DECLARE_TYPEINFO(ardiphon::Completion, Q_RELOCATABLE_TYPE);
