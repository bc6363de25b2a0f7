#include "piece/NewNameRules.h"

#include "piece/OrchestraWords.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr qsizetype MostDigits = 9; ///< of an instrument's number
constexpr qsizetype LongestName = 250;

bool isAsciiDigit(QChar c) { return c >= u'0' && c <= u'9'; }
bool isNameLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_';
}

QString ofCharacters(const QString &name)
{
    if (isAsciiDigit(name[0]))
        return QStringLiteral("A name cannot begin with a digit.");
    const bool isRight = std::all_of(name.begin(), name.end(),
                                     [](QChar c) { return isNameLetter(c) || isAsciiDigit(c); });
    return isRight ? QString()
                   : QStringLiteral("A name has only the letters A to Z, digits and \"_\".");
}

QString ofNumber(const QString &name)
{
    PieceSymbol instrument;
    instrument.kind = SymbolKind::Instrument;
    const QByteArray digits = comparableName(instrument, name);
    if (digits == "0")
        return QStringLiteral("The number of an instrument is 1 or more.");
    return digits.size() > MostDigits ? QStringLiteral("The number is too large.") : QString();
}

QString ofChannel(const QString &name)
{
    const bool isRight = std::none_of(name.begin(), name.end(), [](QChar c) {
        return c < u' ' || c == u'"' || c == u'\\' || c == u'$';
    });
    return isRight ? QString()
                   : QStringLiteral("The name of a channel cannot have \", \\ and $ in it.");
}

/// The type and the reach of a variable are in its first letters.
QString ofVariable(const QString &before, const QString &name)
{
    const QByteArray old = before.toUtf8();
    const QByteArray now = name.toUtf8();
    const char type = variableType(old);
    if (pFieldNumber(now) > 0)
        return QStringLiteral("\"%1\" is a field of the score.").arg(name);
    if (type == 0)
        return QString();
    if (isGlobalName(old) && !isGlobalName(now))
        return QStringLiteral("The name has to begin with \"g%1\", as it is known everywhere.")
            .arg(QLatin1Char(type));
    if (!isGlobalName(old) && isGlobalName(now))
        return QStringLiteral("With \"g\" in front it would be known everywhere.");
    if (variableType(now) == type)
        return QString();
    return QStringLiteral("The name has to begin with \"%1\": another letter is another type.")
        .arg((isGlobalName(old) ? QStringLiteral("g") : QString()) + QLatin1Char(type));
}

QString ofMeaning(const Piece &piece, const QString &name)
{
    const QByteArray bytes = name.toUtf8();
    if (isLanguageWord(bytes))
        return QStringLiteral("\"%1\" is a word of the language.").arg(name);
    if (piece.isOpcode(bytes))
        return QStringLiteral("\"%1\" is an opcode of the language.").arg(name);
    return QString();
}

} // namespace

QString nameRefusal(const Piece &piece, const PieceSymbol &symbol, const QString &name)
{
    if (name.isEmpty())
        return QStringLiteral("Type the new name.");
    if (name.size() > LongestName)
        return QStringLiteral("The name is too long.");
    if (symbol.kind == SymbolKind::Channel)
        return ofChannel(name);
    if (symbol.kind == SymbolKind::Instrument && isNumberName(name.toUtf8()))
        return ofNumber(name);
    if (symbol.kind == SymbolKind::Instrument && name.startsWith(u'-') &&
        isNumberName(name.mid(1).toUtf8()))
        return QStringLiteral("The number of an instrument is 1 or more.");
    if (const QString reason = ofCharacters(name); !reason.isEmpty())
        return reason;
    if (symbol.kind == SymbolKind::Macro)
        return QString();
    if (const QString reason = ofMeaning(piece, name); !reason.isEmpty())
        return reason;
    if (symbol.kind == SymbolKind::UserOpcode && pFieldNumber(name.toUtf8()) > 0)
        return QStringLiteral("\"%1\" is a field of the score.").arg(name);
    if (symbol.kind != SymbolKind::Variable)
        return QString();
    return definesOpcode(piece, name.toUtf8())
               ? QStringLiteral("\"%1\" is an opcode of the piece.").arg(name)
               : ofVariable(QString::fromUtf8(symbol.name), name);
}

QByteArray comparableName(const PieceSymbol &symbol, const QString &name)
{
    QByteArray bytes = name.toUtf8();
    if (symbol.kind == SymbolKind::Instrument && isNumberName(bytes)) {
        while (bytes.size() > 1 && bytes.startsWith('0'))
            bytes.remove(0, 1);
    }
    return bytes;
}

bool isNumberName(QByteArrayView name)
{
    return !name.isEmpty() &&
           std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace ardiphon
