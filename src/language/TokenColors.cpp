#include "language/TokenColors.h"

#include "app/ConfigurationBlock.h"
#include "language/WordTables.h"

namespace ardiphon {

namespace {

TokenColors colorsOfWord(ConfigurationBlock &config, DocumentRole role, const QString &word,
                         TokenColors plain)
{
    WordTables &words = *config.Words;
    TokenColors colors = plain;
    if (role == DocumentRole::Score) {
        // A score statement gets the colours that a word of a CSD has in a CSD.
        if (words.IsScoreWord(word))
            colors = {config.ColorCSDBK, config.ColorCSD};
        return colors;
    }
    words.FindOpcodeRange(word);
    if (words.FindInRange(word) > 0)
        colors = {config.ColorOrchestraBK, config.ColorOrchestra};
    if (role == DocumentRole::Csd) {
        if (words.IsCsdWord(word))
            colors = {config.ColorCSDBK, config.ColorCSD};
        if (words.IsScoreWord(word))
            colors = {config.ColorOrchestraBK, config.ColorOrchestra};
    }
    if (word.startsWith(u'$'))
        colors = {config.ColorMacroBK, config.ColorMacro};
    if (word == QLatin1String("instr") || word == QLatin1String("endin"))
        colors = {config.ColorInstrEndinBK, config.ColorInstrEndin};
    return colors;
}

} // namespace

TokenColors GetTokenColors(ConfigurationBlock &config, DocumentRole role, TokenKind kind,
                           const QString &text)
{
    const TokenColors plain{config.ColorBackground, config.ColorText};
    if (kind == TokenKind::Quoted)
        return {config.ColorFilesBK, config.ColorFiles};
    if (kind == TokenKind::Word)
        return colorsOfWord(config, role, text, plain);
    if (role == DocumentRole::Score)
        return plain;
    if (kind == TokenKind::Operator)
        // On the plain background, unlike the opcodes: an operator is not highlighted as a word is.
        return text == u'=' ? TokenColors{config.ColorBackground, config.ColorOrchestra} : plain;
    if (text == QLatin1String("0dbfs"))
        return {config.ColorOrchestraBK, config.ColorOrchestra};
    return plain;
}

} // namespace ardiphon
