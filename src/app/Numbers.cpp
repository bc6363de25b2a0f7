#include "app/Numbers.h"

#include <QRegularExpression>

#include <cmath>

namespace ardiphon {

namespace {

bool isDigit(QStringView text, qsizetype at)
{
    return at < text.size() && text[at] >= u'0' && text[at] <= u'9';
}

bool isSign(QStringView text, qsizetype at)
{
    return at < text.size() && (text[at] == u'-' || text[at] == u'+');
}

qsizetype skipDigits(QStringView text, qsizetype at)
{
    while (isDigit(text, at))
        ++at;
    return at;
}

/// The end of an exponent that begins at \a at, or \a at itself when there is no whole one.
qsizetype skipExponent(QStringView text, qsizetype at)
{
    if (at >= text.size() || (text[at] != u'e' && text[at] != u'E'))
        return at;
    const qsizetype digits = isSign(text, at + 1) ? at + 2 : at + 1;
    return isDigit(text, digits) ? skipDigits(text, digits) : at;
}

} // namespace

double leadingNumber(QStringView text)
{
    const QStringView number = text.trimmed();
    qsizetype end = skipDigits(number, isSign(number, 0) ? 1 : 0);
    if (end < number.size() && number[end] == u'.')
        end = skipDigits(number, end + 1);
    end = skipExponent(number, end);

    // toDouble refuses a sign or point alone; the result is 0 then.
    return number.left(end).toDouble();
}

bool isNumber(const QString &text)
{
    static const QRegularExpression number(
        QStringLiteral("\\A\\s*[+-]?(\\d++\\.?\\d*+|\\.\\d++)([eE][+-]?\\d++)?\\s*\\z"));
    return number.match(text).hasMatch();
}

int roundedWithin(double number, int lowest, int highest)
{
    if (!(number > lowest))
        return lowest;
    if (number >= highest)
        return highest;
    return static_cast<int>(std::nearbyint(number)); // the default rounding mode goes to even
}

} // namespace ardiphon
