#include "piece/CodeTokens.h"

#include <algorithm>
#include <array>

namespace ardiphon {

namespace {

constexpr std::array<QByteArrayView, 9> Directives = {
    "define", "include", "includestr", "undef", "ifdef", "ifndef", "else", "end", "endif",
};
constexpr std::array<QByteArrayView, 10> Pairs = {"==", "!=", "<=", ">=", "&&",
                                                  "||", "+=", "-=", "*=", "/="};

bool isBlank(char c) { return c == ' ' || (c >= 9 && c <= 13); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool beginsName(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool isOfName(char c) { return beginsName(c) || isDigit(c); }

class Scanner
{
public:
    Scanner(QByteArrayView line, CodeState &state) : m_line(line), m_state(state) {}

    CodeTokens read()
    {
        if (m_state != CodeState::Code)
            readRest(0);
        for (skipBlanks(); !atEnd(); skipBlanks())
            readToken();
        return std::move(m_tokens);
    }

private:
    bool atEnd() const { return m_at >= m_line.size(); }
    char peek(qsizetype ahead = 0) const
    {
        return m_at + ahead < m_line.size() ? m_line[m_at + ahead] : '\0';
    }
    bool sees(QByteArrayView what) const { return m_line.sliced(m_at).startsWith(what); }
    void skipBlanks()
    {
        while (!atEnd() && isBlank(m_line[m_at]))
            ++m_at;
    }
    void skipName()
    {
        while (!atEnd() && isOfName(m_line[m_at]))
            ++m_at;
    }
    void add(CodeTokenKind kind, qsizetype start)
    {
        m_tokens.append({kind, int(start), int(m_at - start)});
    }
    void addComment()
    {
        const qsizetype start = std::exchange(m_at, m_line.size());
        add(CodeTokenKind::Comment, start);
    }

    void readToken()
    {
        const qsizetype start = m_at;
        const char first = peek();
        if (first == ';' || sees("//"))
            addComment();
        else if (sees("/*"))
            open(CodeState::BlockComment, 2);
        else if (sees("{{"))
            open(CodeState::Braces, 2);
        else if (sees("R\"("))
            open(CodeState::RawString, 3);
        else if (first == '"')
            readQuoted();
        else if (first == '#')
            readHash();
        else if (first == '$')
            readMacroUse();
        else if (beginsName(first)) {
            skipName();
            add(CodeTokenKind::Name, start);
        } else if (isDigit(first) || (first == '.' && isDigit(peek(1))))
            readNumber();
        else {
            const bool isPair = std::any_of(Pairs.begin(), Pairs.end(),
                                            [this](QByteArrayView pair) { return sees(pair); });
            m_at += isPair ? 2 : 1;
            add(CodeTokenKind::Symbol, start);
        }
    }

    void open(CodeState state, int length)
    {
        const qsizetype start = m_at;
        m_state = state;
        m_at += length;
        readRest(start);
    }

    /// What is open up to its end, as a token that begins at \a start.
    void readRest(qsizetype start)
    {
        const CodeState open = m_state;
        const QByteArrayView end = open == CodeState::BlockComment ? "*/"
                                   : open == CodeState::Braces     ? "}}"
                                   : open == CodeState::RawString  ? ")\""
                                                                   : "#";
        qsizetype found = m_line.sliced(m_at).indexOf(end);
        while (open == CodeState::Macro && found > 0 && m_line[m_at + found - 1] == '\\') {
            const qsizetype next = m_line.sliced(m_at + found + 1).indexOf(end);
            found = next < 0 ? -1 : found + 1 + next;
        }
        m_at = found < 0 ? m_line.size() : m_at + found + end.size();
        if (found >= 0)
            m_state = CodeState::Code;
        if (m_at > start)
            add(open == CodeState::BlockComment ? CodeTokenKind::Comment
                : open == CodeState::Macro      ? CodeTokenKind::MacroText
                                                : CodeTokenKind::Text,
                start);
    }

    void readQuoted()
    {
        const qsizetype start = m_at++;
        while (!atEnd() && peek() != '"')
            m_at += peek() == '\\' && m_at + 1 < m_line.size() ? 2 : 1;
        if (!atEnd())
            ++m_at;
        add(CodeTokenKind::Text, start);
    }

    /// A directive, the text of a macro, or the operator.
    void readHash()
    {
        const qsizetype start = m_at;
        if (m_definesMacro) {
            m_definesMacro = false;
            open(CodeState::Macro, 1);
            return;
        }
        ++m_at;
        while (!atEnd() && isBlank(peek()))
            ++m_at;
        const qsizetype word = m_at;
        skipName();
        const QByteArrayView name = m_line.sliced(word, m_at - word);
        if (std::find(Directives.begin(), Directives.end(), name) == Directives.end()) {
            m_at = start + 1;
            add(CodeTokenKind::Symbol, start);
            return;
        }
        m_definesMacro = name == "define";
        add(CodeTokenKind::Directive, start);
        if (name == "include")
            readDelimited();
    }

    /// The name of an included file, between any two equal characters.
    void readDelimited()
    {
        skipBlanks();
        if (atEnd() || isOfName(peek()) || peek() == '$')
            return;
        const qsizetype start = m_at;
        const qsizetype end = m_line.indexOf(m_line[start], start + 1);
        m_at = end < 0 ? m_line.size() : end + 1;
        add(CodeTokenKind::Text, start);
    }

    void readMacroUse()
    {
        const qsizetype start = m_at++;
        skipName();
        if (peek() == '.' && m_at > start + 1)
            ++m_at;
        add(m_at > start + 1 ? CodeTokenKind::MacroUse : CodeTokenKind::Symbol, start);
    }

    void readNumber()
    {
        const qsizetype start = m_at;
        while (!atEnd() && (isOfName(peek()) || peek() == '.' || signsExponent(start)))
            ++m_at;
        add(CodeTokenKind::Number, start);
    }

    bool signsExponent(qsizetype start) const
    {
        const char before = m_line[m_at - 1];
        return (peek() == '-' || peek() == '+') && m_at > start &&
               (before == 'e' || before == 'E') && isDigit(peek(1));
    }

    QByteArrayView m_line;
    CodeState &m_state;
    CodeTokens m_tokens;
    qsizetype m_at = 0;
    bool m_definesMacro = false; ///< the next # begins the macro's text
};

} // namespace

CodeTokens readCodeLine(QByteArrayView line, CodeState &state)
{
    return Scanner(line, state).read();
}

} // namespace ardiphon
