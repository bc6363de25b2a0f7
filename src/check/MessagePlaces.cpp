#include "check/MessagePlaces.h"

#include "check/CodeLines.h"
#include "piece/PieceSymbol.h"

#include <QFileInfo>

#include <algorithm>
#include <cstdlib>
#include <tuple>

namespace ardiphon {

namespace {

/// Lines that are compared with what a message quotes, on either side of the line that it names.
constexpr int LinesSearched = 20000;
/// A shorter quotation says nothing by itself.
constexpr qsizetype ShortestQuotation = 4;

/// At which the end of a line comes too early.
bool hasOpenBracket(const CodeLine &code)
{
    return code.packed().count('(') > code.packed().count(')');
}

} // namespace

int MessagePlaces::expectedLine(const CompilerMessage &message) const
{
    const LineRun lines = m_orchestra.lines;
    if (message.kind == MessageKind::Other && message.line == 0)
        return std::max(lines.first, lines.last); // what comes once too often
    return std::clamp(lines.first + message.line - m_orchestra.firstNumber, lines.first,
                      std::max(lines.first, lines.last));
}

PiecePlace MessagePlaces::placeIn(int line, int start, int length) const
{
    const QByteArrayView bytes = m_text.line(line);
    const int column = charactersOf(bytes, start);
    return {m_text.role(), line, column, charactersOf(bytes, start + length) - column};
}

PiecePlace MessagePlaces::wholeLine(int line) const
{
    PiecePlace place{m_text.role(), line, 0, 0};
    visitCode(m_text, {line, line}, [&](int, const CodeLine &code) {
        if (!code.isEmpty()) {
            const int start = code.tokens().first().start;
            place = placeIn(line, start, code.tokens().last().end() - start);
        }
        return false;
    });
    return place;
}

QString MessagePlaces::textAt(const PiecePlace &place) const
{
    return QString::fromUtf8(m_text.line(place.line)).mid(place.column, place.length);
}

std::optional<PiecePlace> MessagePlaces::includeOf(const QString &file) const
{
    std::optional<PiecePlace> place;
    const QString name = QFileInfo(file).fileName();
    m_text.visit(m_orchestra.lines.first, m_orchestra.lines.last, kindsOf(LandmarkKind::Include),
                 [&](PlacedLandmark found) {
                     const PiecePlace here =
                         placeIn(found.line, found.mark->column, found.mark->length);
                     if (QFileInfo(textAt(here)).fileName() == name)
                         place = here;
                     return !place;
                 });
    return place;
}

std::optional<MessagePlaces::Match> MessagePlaces::matchIn(const CompilerMessage &message,
                                                           const QByteArray &quoted, int line,
                                                           const CodeLine &code) const
{
    const QByteArray token = message.token.toUtf8();
    Match match{line, 0, 0, 2};
    int index = -1;
    if (quoted.size() >= ShortestQuotation) {
        const qsizetype at = code.packed().indexOf(quoted);
        if (at < 0)
            return std::nullopt;
        match.tier = at == 0 ? 0 : 1;
        if (token.isEmpty() && !hasOpenBracket(code))
            match.tier += 2;
        index =
            message.quotesToToken ? code.tokenEndingAt(at + quoted.size()) : code.tokenNamed(token);
    } else if (message.kind == MessageKind::UndefinedMacro) {
        index = code.tokenNamed('$' + token);
        if (index < 0)
            index = code.tokenNamed('$' + token + '.');
    } else if (token.isEmpty() && !quoted.isEmpty()) {
        index = code.tokenNamed(quoted);
        match.tier = hasOpenBracket(code) ? 1 : 2;
    } else if (!token.isEmpty()) {
        // Of a call of what is no opcode, the compiler quotes what stands in its brackets.
        index = code.tokenNamed(token);
        match.tier = unknownFunctionIn(code) >= 0 ? 1 : 2;
    }
    if (index < 0)
        return std::nullopt;
    match.tokenStart = code.tokens()[index].start;
    match.tokenLength = code.tokens()[index].length;
    return match;
}

std::optional<MessagePlaces::Match> MessagePlaces::bestMatch(const CompilerMessage &message) const
{
    const int expected = expectedLine(message);
    const LineRun lines{std::max(m_orchestra.lines.first, expected - LinesSearched),
                        std::min(m_orchestra.lines.last, expected + LinesSearched)};
    std::optional<Match> best;
    const auto rank = [=](const Match &match) {
        // The lines that are named are rather too small.
        return std::tuple(match.tier, std::abs(match.line - expected), -match.line);
    };
    const QByteArray quoted = packed(message.quoted);
    visitCode(m_text, lines, [&](int line, const CodeLine &code) {
        const auto match = matchIn(message, quoted, line, code);
        if (match && (!best || rank(*match) < rank(*best)))
            best = match;
        return true;
    });
    return best;
}

bool MessagePlaces::isElsewhere(const CompilerMessage &message) const
{
    return !message.file.isEmpty() && QFileInfo(message.file).fileName() != m_orchestra.fileName;
}

PiecePlace MessagePlaces::placeOf(const CompilerMessage &message) const
{
    if (isElsewhere(message) || message.kind == MessageKind::MissingFile) {
        if (const auto include = includeOf(isElsewhere(message) ? message.file : message.token))
            return *include;
    }
    if (message.kind == MessageKind::UnexpectedEnd)
        return wholeLine(m_orchestra.lines.last);
    if (const auto match = bestMatch(message))
        return placeIn(match->line, match->tokenStart, match->tokenLength);
    return wholeLine(expectedLine(message));
}

std::optional<OpenBlock> MessagePlaces::openBlock(const CompilerMessage &message) const
{
    const int line = message.kind == MessageKind::UnexpectedEnd ? m_orchestra.lines.last + 1
                                                                : placeOf(message).line;
    return openBlockBefore(m_text, m_orchestra.lines, line);
}

/// Which token it is, -1 for none.
int MessagePlaces::unknownFunctionIn(const CodeLine &code) const
{
    const CodeTokens &tokens = code.tokens();
    for (qsizetype i = 0; i + 1 < tokens.size(); ++i) {
        const QByteArrayView name = tokens[i].in(code.bytes());
        if (tokens[i].kind == CodeTokenKind::Name && !m_isOpcode(name) && !isLanguageWord(name) &&
            tokens[i + 1].in(code.bytes()) == "(")
            return int(i);
    }
    return -1;
}

std::optional<PiecePlace> MessagePlaces::unknownFunction(int line) const
{
    std::optional<PiecePlace> place;
    visitCode(m_text, {line, line}, [&](int, const CodeLine &code) {
        if (const int found = unknownFunctionIn(code); found >= 0)
            place = placeIn(line, code.tokens()[found].start, code.tokens()[found].length);
        return false;
    });
    return place;
}

} // namespace ardiphon
