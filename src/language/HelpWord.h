#pragma once

#include "app/DocumentRole.h"
#include "language/TokenColors.h"

#include <QString>

namespace ardiphon {

class WordTables;

/// The keyword under which the manual explains the tables that a score fills.
inline const QString GenRoutinesKeyword = QStringLiteral("Gen Routines");
/// The keyword of the CSoundAV entries.
inline const QString CSoundAVKeyword = QStringLiteral("csoundav");
/// The keyword of the flags entry.
inline const QString FlagsKeyword = QStringLiteral("csound, command line flags");
/// What follows a score statement in its keyword.
inline const QString ScoreStatementSuffix = QStringLiteral(" (score statement)");

/// The keyword that the help key asks for with the caret on \a word in a view of \a role: the
/// word itself when it is an opcode or a word of a CSD, else "". In a score it is always the
/// function tables.
QString keyHelpWord(const WordTables &words, DocumentRole role, const QString &word);

/// What the popup offers for the word at the caret.
struct PopupHelpWord
{
    QString HelpWord;                            ///< the keyword; "" means none
    QString MenuWord = QStringLiteral("Opcode"); ///< the word that the entry names

    /// The caption of the entry.
    QString caption() const { return MenuWord + QStringLiteral(" -> Help"); }
};

/// As keyHelpWord, but for the popup: opcodes are searched by their first letter, which sets the
/// look-up range, and in a score the statements are what counts.
PopupHelpWord popupHelpWord(WordTables &words, DocumentRole role, const QString &word);

} // namespace ardiphon
