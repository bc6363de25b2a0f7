#include "piece/ScoreFieldText.h"

#include "piece/ScoreExpression.h"

namespace ardiphon {

qsizetype afterScoreBlanks(QByteArrayView text, qsizetype at)
{
    while (at < text.size() && isScoreByte(text[at], ScoreFieldByte::Blank))
        ++at;
    return at;
}

QByteArrayView takeScoreToken(QByteArrayView text, qsizetype &at)
{
    const qsizetype start = at;
    while (at < text.size() && isScoreByte(text[at], ScoreFieldByte::Inside))
        ++at;
    return text.sliced(start, at - start);
}

double takeScoreNumber(QByteArrayView text, qsizetype &at)
{
    if (at < text.size() && text[at] == '[')
        return scoreExpression(text, at);
    return scoreNumber(takeScoreToken(text, at));
}

qsizetype scoreStringEnd(QByteArrayView text, qsizetype at)
{
    for (++at; at < text.size(); ++at) {
        if (text[at] == '\\')
            ++at;
        else if (text[at] == '"')
            return at + 1;
    }
    return text.size();
}

} // namespace ardiphon
