#include "language/Tokenizer.h"

#include "language/Utf8.h"

#include <QChar>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace ardiphon {

namespace {

constexpr QByteArrayView Operators("=()*+-,^");

bool isBlank(char32_t c)
{
    return c == U' ' || (c >= 9 && c <= 13) || (c >= 128 && QChar::isSpace(c));
}

bool isDigit(char32_t c) { return c >= U'0' && c <= U'9'; }

bool isLetter(char32_t c)
{
    if (c < 128)
        return (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z');
    return QChar::isLetter(c);
}

// Reads the tokens of one line from left to right.
class LineReader
{
public:
    explicit LineReader(QByteArrayView line) : m_line(line) {}

    bool atEnd() const { return m_at >= m_line.size(); }

    void skipBlanks()
    {
        while (!atEnd() && isBlank(peek().code))
            m_at += peek().length;
    }

    // The token that goes on from the line before, up to where it ends.
    Token rest(LineState &state)
    {
        const qsizetype start = m_at;
        const LineState began = std::exchange(state, LineState::Text);
        switch (began) {
        case LineState::Quoted:
            readTo("\"");
            break;
        case LineState::LineComment:
            m_at = m_line.size();
            break;
        default:
            if (!readTo("*/"))
                state = LineState::BlockComment;
        }
        if (began == LineState::Quoted)
            return {start, m_at - start, TokenKind::Quoted, false};
        return {start, m_at - start, TokenKind::Other, true};
    }

    Token next(LineState &state)
    {
        const qsizetype start = m_at;
        const Utf8Character first = peek();
        if (first.code == U';') {
            m_at = m_line.size();
            return {start, m_at - start, TokenKind::Other, true};
        }
        if (m_line.sliced(start).startsWith("/*"))
            return blockComment(state);
        const TokenKind kind = read(first);
        return {start, m_at - start, kind, false};
    }

private:
    Utf8Character peek() const { return characterAt(m_line, m_at); }

    // Reads up to and including these characters, else to the line's end. True when they were
    // found.
    bool readTo(QByteArrayView what)
    {
        const qsizetype found = m_line.sliced(m_at).indexOf(what);
        m_at = found < 0 ? m_line.size() : m_at + found + what.size();
        return found >= 0;
    }

    Token blockComment(LineState &state)
    {
        m_at += 2;
        state = LineState::BlockComment;
        const Token comment = rest(state);
        return {comment.start - 2, comment.length + 2, TokenKind::Other, true};
    }

    TokenKind read(Utf8Character first)
    {
        if (first.code == U'"') {
            ++m_at;
            readTo("\"");
            return TokenKind::Quoted;
        }
        if (first.code == U'<' && readTag())
            return TokenKind::Word;
        m_at += first.length;
        if (isLetter(first.code) || first.code == U'_' || first.code == U'#' ||
            first.code == U'$') {
            readName();
            if (first.code == U'$' && !atEnd() && m_line[m_at] == '.')
                ++m_at;
            return TokenKind::Word;
        }
        if (isDigit(first.code))
            readName();
        else if (first.code < 128 && Operators.contains(char(first.code)))
            return TokenKind::Operator;
        return TokenKind::Other;
    }

    bool readTag()
    {
        qsizetype at = m_at + 1;
        if (at < m_line.size() && m_line[at] == '/')
            ++at;
        const qsizetype letters = at;
        while (at < m_line.size() && isLetter(characterAt(m_line, at).code))
            at += characterAt(m_line, at).length;
        if (at == letters || at == m_line.size() || m_line[at] != '>')
            return false;
        m_at = at + 1;
        return true;
    }

    void readName()
    {
        while (!atEnd()) {
            const Utf8Character character = peek();
            if (!isLetter(character.code) && !isDigit(character.code) && character.code != U'_')
                return;
            m_at += character.length;
        }
    }

    QByteArrayView m_line;
    qsizetype m_at = 0;
};

constexpr std::array<bool, 256> commentStarters()
{
    std::array<bool, 256> starters{};
    starters['"'] = starters[';'] = starters['/'] = true;
    return starters;
}

// The first line end at or behind `at`, or the end of the text.
const char *lineEnd(const char *at, const char *end)
{
    while (at < end && *at != '\n' && *at != '\r')
        ++at;
    return at;
}

// The place after the "*/" that closes a comment, or null when there is none.
const char *commentEnd(const char *at, const char *end)
{
    while (at < end) {
        at = static_cast<const char *>(std::memchr(at, '*', size_t(end - at)));
        if (!at || at + 1 == end)
            return nullptr;
        if (at[1] == '/')
            return at + 2;
        ++at;
    }
    return nullptr;
}

// The place after the end of what `state` says, or null when that does not end here.
const char *behindRest(const char *at, const char *end, LineState state)
{
    if (state == LineState::BlockComment)
        return commentEnd(at, end);
    if (state == LineState::LineComment) {
        at = lineEnd(at, end);
        return at == end ? nullptr : at;
    }
    while (at < end && *at != '"' && *at != '\n' && *at != '\r')
        ++at;
    return at == end ? nullptr : at + 1;
}

} // namespace

QList<Token> tokenizeLine(QByteArrayView line, LineState &state)
{
    QList<Token> tokens;
    LineReader reader(line);
    if (state != LineState::Text)
        tokens.append(reader.rest(state));
    for (reader.skipBlanks(); !reader.atEnd(); reader.skipBlanks())
        tokens.append(reader.next(state));
    return tokens;
}

LineState stateInside(QByteArrayView text, LineState state)
{
    static constexpr std::array<bool, 256> starters = commentStarters();
    const char *at = text.begin();
    const char *const end = text.end();
    while (at < end) {
        if (state != LineState::Text) {
            at = behindRest(at, end, state);
            if (!at)
                return state;
            state = LineState::Text;
        }
        while (at < end && !starters[static_cast<unsigned char>(*at)])
            ++at;
        if (at == end)
            return state;
        const char starter = *at++;
        if (starter == ';') {
            state = LineState::LineComment;
        } else if (starter == '"') {
            state = LineState::Quoted;
        } else if (at < end && *at == '*') {
            ++at;
            state = LineState::BlockComment;
        }
    }
    return state;
}

LineState stateBehind(QByteArrayView text, LineState state)
{
    return stateInside(text, state) == LineState::BlockComment ? LineState::BlockComment
                                                               : LineState::Text;
}

qsizetype boundaryInside(QByteArrayView line, qsizetype from)
{
    constexpr QByteArrayView ends(" \t,=()+-^"); // none of them is part of a comment's mark
    constexpr qsizetype longestToken = 1024;
    const qsizetype last = std::min(from + longestToken, line.size());
    for (qsizetype at = from; at < last; ++at)
        if (ends.contains(line[at]))
            return at + 1;
    qsizetype at = last;
    const auto isInside = [&] {
        return (static_cast<unsigned char>(line[at]) & 0xC0) == 0x80 || line[at - 1] == '/' ||
               line[at - 1] == '*';
    };
    while (at > 0 && at < line.size() && isInside())
        ++at;
    return at;
}

QString wordAt(QByteArrayView line, qsizetype column, LineState state)
{
    QString ending;
    for (const Token &token : tokenizeLine(line, state)) {
        if (token.start > column)
            break;
        if (token.comment || token.kind != TokenKind::Word || token.end() < column)
            continue;
        QString word = stringOf(line.sliced(token.start, token.length));
        if (token.end() > column)
            return word;
        ending = word;
    }
    return ending;
}

} // namespace ardiphon
