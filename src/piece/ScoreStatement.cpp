#include "piece/ScoreStatement.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace ardiphon {

namespace {

/// What a byte is within a field: nothing in particular, or the end of a usual field, or what the
/// reader looks at more closely.
enum class ScoreByte : quint8 { Usual, Blank, Sign };

constexpr std::array<ScoreByte, 256> ScoreBytes = [] {
    std::array<ScoreByte, 256> kinds{};
    for (const char blank : {' ', '\t', '\r', '\n', '\v', '\f', '\0'})
        kinds[quint8(blank)] = ScoreByte::Blank;
    for (const char sign : {';', '/', '"', '[', '$', '#'})
        kinds[quint8(sign)] = ScoreByte::Sign;
    return kinds;
}();

constexpr bool isScoreLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr bool isScoreDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isNameByte(char c) { return isScoreLetter(c) || isScoreDigit(c) || c == '_'; }

/// Reads one line from left to right.
class ScoreLineReader
{
public:
    ScoreLineReader(QByteArrayView line, CodeState &state, ScoreStatement &statement)
        : m_bytes(line.data()),
          m_end(int(std::min<qsizetype>(line.size(), std::numeric_limits<int>::max()))),
          m_state(state),
          m_statement(statement)
    {
    }

    void read();

private:
    bool isAt(char c) const { return m_at < m_end && m_bytes[m_at] == c; }
    char next() const { return m_at + 1 < m_end ? m_bytes[m_at + 1] : '\0'; }
    ScoreByte kind() const { return ScoreBytes[quint8(m_bytes[m_at])]; }
    ScoreRange since(int start) const { return {start, m_at - start}; }

    void skipBlanks();
    void skipTo(char c);
    bool skipPast(char c);
    bool skipComment();
    void skipMacroText();
    void readLetter();
    void readField();
    void skipString();
    void skipExpression();
    void skipCall();
    void skipUsual();
    ScoreRange readName();
    bool readDirective();
    void readDefinition(ScoreDirective &directive);
    ScoreRange readFileName();

    const char *const m_bytes;
    const int m_end;
    int m_at = 0;
    CodeState &m_state;
    ScoreStatement &m_statement;
};

void ScoreLineReader::read()
{
    if (m_state == CodeState::Macro)
        skipMacroText();
    else if (m_state == CodeState::BlockComment)
        m_at -= 2; // the two bytes of its beginning, which skipComment() passes
    if (m_state == CodeState::BlockComment)
        skipComment();
    else if (m_state != CodeState::Macro)
        m_state = CodeState::Code;

    while (m_state == CodeState::Code) {
        skipBlanks();
        if (m_at >= m_end)
            return;
        if (kind() == ScoreByte::Sign && (skipComment() || readDirective()))
            continue;
        if (m_statement.letter == 0 && m_statement.fields.isEmpty())
            readLetter();
        else
            readField();
    }
}

void ScoreLineReader::skipBlanks()
{
    while (m_at < m_end && kind() == ScoreByte::Blank)
        ++m_at;
}

void ScoreLineReader::skipTo(char c)
{
    const void *const found =
        m_at < m_end ? memchr(m_bytes + m_at, c, size_t(m_end - m_at)) : nullptr;
    m_at = found ? int(static_cast<const char *>(found) - m_bytes) : m_end;
}

/// Whether there is one.
bool ScoreLineReader::skipPast(char c)
{
    skipTo(c);
    if (m_at >= m_end)
        return false;
    ++m_at;
    return true;
}

/// Whether there was one here, or one open from above.
bool ScoreLineReader::skipComment()
{
    const bool wasOpen = m_state == CodeState::BlockComment;
    if (!wasOpen && (isAt(';') || (isAt('/') && next() == '/'))) {
        m_at = m_end;
        return true;
    }
    if (!wasOpen && !(isAt('/') && next() == '*'))
        return false;
    m_at += 2;
    m_state = CodeState::BlockComment;
    while (skipPast('*')) {
        if (!isAt('/'))
            continue;
        ++m_at;
        m_state = CodeState::Code;
        break;
    }
    return true;
}

/// To the # that ends it.
void ScoreLineReader::skipMacroText()
{
    m_state = skipPast('#') ? CodeState::Code : CodeState::Macro;
}

void ScoreLineReader::readLetter()
{
    const char c = m_bytes[m_at];
    if (c == 'c') { // a comment to the end of the line
        m_at = m_end;
        return;
    }
    m_statement.letterAt = m_at;
    if (isScoreLetter(c) || c == '{' || c == '}') {
        m_statement.letter = c;
        ++m_at;
    } else if (c == '$') {
        m_statement.letter = c;
        readField();
    } else {
        readField(); // of the statement above, which goes on
    }
}

void ScoreLineReader::readField()
{
    const int start = m_at;
    if (isAt('"')) {
        skipString();
    } else if (isAt('[')) {
        skipExpression();
    } else {
        ++m_at; // whatever it is
        if (m_bytes[start] == '$')
            skipCall();
        skipUsual();
    }
    if (m_statement.fields.size() < ScoreStatement::MostFields)
        m_statement.fields.append(since(start));
}

/// From " to ", or to the end of the line.
void ScoreLineReader::skipString()
{
    for (++m_at; m_at < m_end; ++m_at) {
        if (m_bytes[m_at] == '\\')
            ++m_at;
        else if (m_bytes[m_at] == '"')
            break;
    }
    m_at = std::min(m_at + 1, m_end);
}

/// From [ to the ] that belongs to it, or to a comment or the end of the line.
void ScoreLineReader::skipExpression()
{
    int depth = 0;
    for (; m_at < m_end; ++m_at) {
        const char c = m_bytes[m_at];
        if (c == ';')
            return;
        if (c == '[')
            ++depth;
        if (c == ']' && --depth == 0) {
            ++m_at;
            return;
        }
    }
}

/// The name of a macro, the full stop that ends it, and its arguments, after the $.
void ScoreLineReader::skipCall()
{
    while (m_at < m_end && isNameByte(m_bytes[m_at]))
        ++m_at;
    if (isAt('.'))
        ++m_at;
    if (!isAt('('))
        return;
    int depth = 0;
    for (; m_at < m_end; ++m_at) {
        if (m_bytes[m_at] == '(')
            ++depth;
        if (m_bytes[m_at] == ')' && --depth == 0) {
            ++m_at;
            return;
        }
    }
}

/// To the end of a field that is no string and no expression; calls may stand in it.
void ScoreLineReader::skipUsual()
{
    for (; m_at < m_end; ++m_at) {
        switch (kind()) {
        case ScoreByte::Usual:
            break;
        case ScoreByte::Blank:
            return;
        case ScoreByte::Sign:
            if (m_bytes[m_at] == '$') {
                ++m_at;
                skipCall();
                --m_at;
            } else if (m_bytes[m_at] != '/' || next() == '/' || next() == '*') {
                return;
            }
        }
    }
}

ScoreRange ScoreLineReader::readName()
{
    skipBlanks();
    const int start = m_at;
    while (m_at < m_end && isNameByte(m_bytes[m_at]))
        ++m_at;
    return since(start);
}

/// Whether a # stood here: with the word of a directive, or as the beginning of a text whose
/// #define is on a line above.
bool ScoreLineReader::readDirective()
{
    if (!isAt('#'))
        return false;
    const int start = m_at++;
    const QByteArrayView word = readName().in({m_bytes, m_end});
    ScoreDirective directive;
    directive.word = since(start);
    using Kind = ScoreDirective::Kind;
    static constexpr struct
    {
        const char *word;
        Kind kind;
    } Words[] = {{"define", Kind::Define},      {"undef", Kind::Undef}, {"include", Kind::Include},
                 {"includestr", Kind::Include}, {"ifdef", Kind::Ifdef}, {"ifndef", Kind::Ifndef},
                 {"else", Kind::Else},          {"end", Kind::End},     {"endif", Kind::End}};
    const auto *const found = std::find_if(std::begin(Words), std::end(Words),
                                           [&](const auto &known) { return word == known.word; });
    if (found == std::end(Words)) {
        m_at = start + 1;
        if (m_statement.letter == 0)
            skipMacroText();
        return true;
    }
    directive.kind = found->kind;
    if (directive.kind == Kind::Include)
        directive.name = readFileName();
    else if (directive.kind != Kind::Else && directive.kind != Kind::End)
        directive.name = readName();
    if (directive.kind == Kind::Define)
        readDefinition(directive);
    m_statement.directives.append(directive);
    return true;
}

/// Arguments and text, after the name.
void ScoreLineReader::readDefinition(ScoreDirective &directive)
{
    skipBlanks();
    if (isAt('(')) {
        ++m_at;
        while (m_at < m_end && !isAt(')')) {
            const ScoreRange name = readName();
            if (name.length > 0)
                directive.arguments.append(name);
            else if (!isAt(')'))
                ++m_at; // what divides them
        }
        ++m_at;
        skipBlanks();
    }
    while (m_at < m_end && skipComment() && m_state == CodeState::Code)
        skipBlanks();
    if (m_state != CodeState::Code || !isAt('#')) {
        m_at = std::min(m_at, m_end);
        return;
    }
    const int start = ++m_at;
    skipMacroText();
    directive.text = {start, m_at - start - (m_state == CodeState::Code ? 1 : 0)};
}

/// Between any two equal signs.
ScoreRange ScoreLineReader::readFileName()
{
    skipBlanks();
    if (m_at >= m_end)
        return {m_end, 0};
    const char quote = m_bytes[m_at++];
    const int start = m_at;
    skipTo(quote);
    const ScoreRange name = since(start);
    m_at = std::min(m_at + 1, m_end);
    return name;
}

} // namespace

ScoreStatement readScoreLine(QByteArrayView line, CodeState &state)
{
    ScoreStatement statement;
    ScoreLineReader(line, state, statement).read();
    return statement;
}

bool isScoreStatement(char letter)
{
    return letter != 0 && QByteArrayView("abBCdefimnqrstvxy{}").contains(letter);
}

std::optional<ScoreInstrument> instrumentOf(QByteArrayView field)
{
    ScoreInstrument instrument;
    const bool isQuoted = field.startsWith('"');
    if (isQuoted)
        field = field.sliced(1, field.size() - (field.size() > 1 && field.endsWith('"') ? 2 : 1));
    if (field.startsWith('-') || (!isQuoted && field.startsWith('+'))) {
        instrument.turnsOff = field.front() == '-';
        field = field.sliced(1);
    }
    if (isQuoted) {
        const qsizetype fraction = field.indexOf('.');
        instrument.name = fraction < 0 ? field : field.first(fraction);
        return instrument.name.isEmpty() ? std::nullopt : std::optional(instrument);
    }
    if (field.isEmpty() || !isScoreDigit(field.front()))
        return std::nullopt;
    for (const char c : field) {
        if (!isScoreDigit(c))
            return c == '.' ? std::optional(instrument) : std::nullopt;
        const int digit = c - '0';
        if (instrument.number > (std::numeric_limits<int>::max() - digit) / 10)
            return std::nullopt;
        instrument.number = instrument.number * 10 + digit;
    }
    return instrument;
}

} // namespace ardiphon
