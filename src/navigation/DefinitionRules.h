#pragma once

#include <QString>

namespace ardiphon {

/// How one of the two commands looks for a word: everything in which Definition and Reference
/// differ.
struct DefinitionRules
{
    bool takesMacros;         ///< "$" and "." around a word are cut off, and a "$" makes it global
    const char *globalLine;   ///< on a line with this text every word is global
    bool globalFromTop;       ///< global words: the first from the top, else the next one
    bool localFromInstrument; ///< local words: the first in the instrument, else the next one
    bool focusesWithoutWord;  ///< with no word or no text at all the editor still gets the focus
};

inline constexpr DefinitionRules Definition{true, "#undef", true, true, true};
inline constexpr DefinitionRules Reference{false, "#define", false, false, false};

/// The text to search for, and whether its instrument matters.
struct WordToFind
{
    QString text;
    bool global = false;
};

/// What to search for by \a rules with the caret on \a word, in a line with \a lineText.
WordToFind wordToFind(const DefinitionRules &rules, const QString &word, const QString &lineText);

/// The captions of the two entries while they are shown for \a word.
QString definitionCaption(const QString &word);
QString referenceCaption(const QString &word);

} // namespace ardiphon
