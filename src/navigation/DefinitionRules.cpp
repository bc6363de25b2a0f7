#include "navigation/DefinitionRules.h"

namespace ardiphon {

namespace {

constexpr int ShownWordLength = 50;

} // namespace

WordToFind wordToFind(const DefinitionRules &rules, const QString &word, const QString &lineText)
{
    WordToFind found{word, lineText.contains(QLatin1String(rules.globalLine))};
    if (rules.takesMacros && found.text.startsWith(u'$')) {
        found.text.remove(0, 1);
        found.global = true;
    }
    if (rules.takesMacros && found.text.endsWith(u'.'))
        found.text.chop(1);
    found.global = found.global || found.text.startsWith(u'g');
    return found;
}

QString definitionCaption(const QString &word)
{
    return QStringLiteral("Go to definition of ") + word.left(ShownWordLength);
}

QString referenceCaption(const QString &word)
{
    return QStringLiteral("Go to reference of ") + word.left(ShownWordLength);
}

} // namespace ardiphon
