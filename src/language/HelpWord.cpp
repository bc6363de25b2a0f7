#include "language/HelpWord.h"

#include "language/WordTables.h"

namespace ardiphon {

QString keyHelpWord(const WordTables &words, DocumentRole role, const QString &word)
{
    if (role == DocumentRole::Score)
        return GenRoutinesKeyword;
    return words.FindInTable(word) > 0 || words.IsCsdWord(word) ? word : QString();
}

PopupHelpWord popupHelpWord(WordTables &words, DocumentRole role, const QString &word)
{
    if (role == DocumentRole::Score) {
        if (!words.IsScoreWord(word))
            return {};
        const QString keyword = word + ScoreStatementSuffix;
        return {keyword, keyword};
    }
    words.FindOpcodeRange(word);
    if (words.FindInRange(word) > 0 || words.IsCsdWord(word))
        return {word, word};
    return {};
}

} // namespace ardiphon
