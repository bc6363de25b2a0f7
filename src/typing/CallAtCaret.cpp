#include "typing/CallAtCaret.h"

#include "piece/PieceSymbol.h"
#include "piece/ScoreStatement.h"
#include "piece/StatementTokens.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int MostLinesAbove = 32;
constexpr int MostLinesBelow = 16;
constexpr int LongestCallLine = 16 * 1024;

/// The lines of a statement as one, with the caret in it.
class StatementAround
{
public:
    StatementAround(const PieceText &text, int line, int column) : m_text(text)
    {
        int first = line;
        while (first > 1 && first > line - MostLinesAbove &&
               text.stateAt(first).continuation != Continuation::None)
            --first;
        CodeState state = text.stateAt(first).code;
        const int last = std::min(text.lineCount(), line + MostLinesBelow);
        for (int at = first; at <= last; ++at) {
            const QByteArrayView bytes = text.line(at);
            if (bytes.size() > LongestCallLine) {
                isInCode = false;
                return;
            }
            if (at == line)
                caret = int(m_joined.size()) + byteOfCharacter(bytes, column);
            addLine(at, bytes, state);
            if (at >= line && !goesOn())
                return;
        }
    }

    QByteArrayView bytes() const { return m_joined; }
    PiecePlace placeOf(const CodeToken &token) const
    {
        const auto next = std::find_if(m_lines.begin(), m_lines.end(),
                                       [&](const Line &line) { return line.offset > token.start; });
        const Line &line = *std::prev(next);
        const QByteArrayView bytes = m_text.line(line.number);
        const int column = charactersOf(bytes, token.start - line.offset);
        return {m_text.role(), line.number, column,
                charactersOf(bytes, token.end() - line.offset) - column};
    }

    CodeTokens tokens;
    int caret = -1;
    bool isInCode = true;

private:
    struct Line
    {
        int number;
        int offset;
    };

    void addLine(int number, QByteArrayView bytes, CodeState &state)
    {
        const int offset = int(m_joined.size());
        const int length = int(bytes.size());
        m_lines.push_back({number, offset});
        m_joined.append(bytes).append('\n');
        m_goesOn = false;
        for (CodeToken token :
             readCodeLine(QByteArrayView(m_joined).sliced(offset, length), state)) {
            token.start += offset;
            if (token.kind == CodeTokenKind::Comment || token.kind == CodeTokenKind::MacroText) {
                const bool isOpen = token.end() == offset + length;
                isInCode &= caret <= token.start || caret > token.end() ||
                            (caret == token.end() && !isOpen);
            } else if (token.in(m_joined) == "\\") {
                m_goesOn = true;
            } else {
                tokens.append(token);
                m_goesOn = token.in(m_joined) == ",";
            }
        }
    }
    bool goesOn() const { return m_goesOn; }

    const PieceText &m_text;
    QByteArray m_joined;
    std::vector<Line> m_lines;
    bool m_goesOn = false;
};

/// The calls of a statement, as its tokens go by.
class CallReader
{
public:
    CallReader(const Piece &piece, const StatementAround &statement)
        : m_piece(piece), m_statement(statement), m_tokens(statement.bytes(), statement.tokens)
    {
    }

    std::optional<CallAtCaret> read()
    {
        const qsizetype first = m_tokens.isLabel() ? 2 : 0;
        if (isHeading(first))
            return std::nullopt;
        const qsizetype called = opcodeOf(first);
        if (called >= 0) {
            open(called, m_statement.tokens[called].end() + 1, CallAtCaret::Form::Statement);
            m_open.back().call.outputs = outputs(first, called);
            m_open.back().call.knowsOutputs = true;
        }
        for (qsizetype at = called >= 0 ? called + 1 : first; m_tokens.has(at); ++at)
            readToken(first, at);
        while (!m_open.empty())
            close(int(m_statement.bytes().size()));
        return m_found;
    }

private:
    struct Open
    {
        CallAtCaret call;
        bool isCall = false; ///< and no bracket
        int begin = 0;       ///< of its arguments
        int argument = 0;    ///< where the present one begins
    };

    static bool isIn(QByteArrayView word, std::initializer_list<QByteArrayView> words)
    {
        return std::find(words.begin(), words.end(), word) != words.end();
    }
    bool isHeading(qsizetype first) const
    {
        return m_tokens.isKind(first, CodeTokenKind::Directive) ||
               isIn(m_tokens.word(first), {"instr", "opcode", "struct"});
    }
    bool isOpcode(qsizetype at) const
    {
        const QByteArrayView name = m_tokens.word(at);
        return m_tokens.isName(at) && !isLanguageWord(name) &&
               (m_piece.isOpcode(name) || m_piece.definesOpcode(name));
    }

    /// The opcode of the statement with what is on its left, also where its arguments are yet to
    /// come; -1 for none.
    qsizetype opcodeOf(qsizetype first) const
    {
        if (isOpcode(first) && !isVariableThere(first))
            return first;
        for (qsizetype at = first; m_tokens.isName(at) && !blockWord(m_tokens.word(at)); ++at) {
            at = m_tokens.behindVariable(at);
            if (!m_tokens.isSymbol(at, ","))
                return isOpcode(at) && !isFunction(at) ? at : -1;
        }
        return -1;
    }
    /// Whether what follows a name that an opcode has shows that a variable has it too, or that it
    /// is called as a function.
    bool isVariableThere(qsizetype at) const
    {
        return isFunction(at) ||
               isIn(m_tokens.word(at + 1), {",", "=", "+=", "-=", "*=", "/=", "[", ":"});
    }
    bool isFunction(qsizetype at) const
    {
        if (m_tokens.isSymbol(at + 1, ":") && m_tokens.isName(at + 2))
            at += 2;
        return m_tokens.isSymbol(at + 1, "(") && m_tokens.touchesNext(at);
    }

    QStringList outputs(qsizetype first, qsizetype end) const
    {
        QStringList written;
        for (qsizetype at = first; at < end; ++at) {
            written.append(output(at));
            at = m_tokens.behindVariable(at);
        }
        return written;
    }
    /// A variable, or its type where it has one.
    QString output(qsizetype at) const
    {
        const bool hasType = m_tokens.isSymbol(at + 1, ":") && m_tokens.isName(at + 2);
        const qsizetype name = hasType ? at + 2 : at;
        const bool isArray = m_tokens.isSymbol(name + 1, "[") && m_tokens.isSymbol(name + 2, "]");
        return QString::fromUtf8(m_tokens.word(name)) +
               (isArray ? QStringLiteral("[]") : QString());
    }

    void readToken(qsizetype first, qsizetype at)
    {
        const CodeToken &token = m_statement.tokens[at];
        if (m_tokens.isSymbol(at, "(")) {
            openFunction(first, at);
        } else if (m_tokens.isSymbol(at, "[")) {
            m_open.push_back({});
        } else if (m_tokens.isSymbol(at, ")") || m_tokens.isSymbol(at, "]")) {
            const bool isStatement = m_open.size() == 1 &&
                                     m_open.back().call.form == CallAtCaret::Form::Statement &&
                                     m_open.back().isCall;
            if (!m_open.empty() && !isStatement)
                close(token.start);
        } else if (m_tokens.isSymbol(at, ",") && !m_open.empty() && m_open.back().isCall) {
            endArgument(token.start);
            if (m_statement.caret > token.start)
                ++m_open.back().call.argument;
            m_open.back().argument = token.end();
        }
    }

    void openFunction(qsizetype first, qsizetype at)
    {
        const bool hasType = m_tokens.isType(at - 1);
        const qsizetype name = hasType ? at - 3 : at - 1;
        if (!m_tokens.touchesNext(at - 1) || !isOpcode(name)) {
            m_open.push_back({});
            return;
        }
        open(name, m_statement.tokens[at].end(), CallAtCaret::Form::Function);
        CallAtCaret &call = m_open.back().call;
        if (hasType)
            call.outputs = {QString::fromUtf8(m_tokens.word(at - 1))};
        else if (m_tokens.isSymbol(name - 1, "=") && m_tokens.behindVariable(first) == name - 1)
            call.outputs = {output(first)};
        call.knowsOutputs = !call.outputs.isEmpty();
    }

    void open(qsizetype name, int begin, CallAtCaret::Form form)
    {
        Open opened;
        opened.isCall = true;
        opened.begin = opened.argument = begin;
        opened.call.form = form;
        opened.call.name = m_tokens.word(name).toByteArray();
        opened.call.place = m_statement.placeOf(m_statement.tokens[name]);
        m_open.push_back(opened);
    }
    /// What is written up to \a end, without comments around it.
    void endArgument(int end)
    {
        Open &opened = m_open.back();
        int first = end;
        int last = end;
        for (const CodeToken &token : m_statement.tokens) {
            if (token.start < opened.argument || token.end() > end)
                continue;
            first = std::min(first, token.start);
            last = token.end();
        }
        const QByteArrayView written = m_statement.bytes().sliced(first, last - first);
        opened.call.arguments.append(QString::fromUtf8(written));
    }
    /// The innermost with the caret in it closes first.
    void close(int end)
    {
        if (m_open.back().isCall) {
            endArgument(end);
            const Open &opened = m_open.back();
            const int begin = opened.begin;
            if (!m_found && m_statement.caret >= begin && m_statement.caret <= end)
                m_found = opened.call;
        }
        m_open.pop_back();
    }

    const Piece &m_piece;
    const StatementAround &m_statement;
    const StatementTokens m_tokens;
    std::vector<Open> m_open;
    std::optional<CallAtCaret> m_found;
};

} // namespace

std::optional<CallAtCaret> callAtCaret(const Piece &piece, const PieceText &text, int line,
                                       int column)
{
    if (line < 1 || line > text.lineCount() ||
        text.stateAt(line).section != PieceSection::Orchestra)
        return std::nullopt;
    const StatementAround statement(text, line, column);
    if (!statement.isInCode || statement.caret < 0 || statement.tokens.isEmpty())
        return std::nullopt;
    return CallReader(piece, statement).read();
}

std::optional<ScoreFieldAtCaret> scoreFieldAtCaret(const PieceText &text, int line, int column)
{
    if (line < 1 || line > text.lineCount())
        return std::nullopt;
    PieceState state = text.stateAt(line);
    const QByteArrayView bytes = text.line(line);
    if (state.section != PieceSection::Score || bytes.size() > LongestCallLine)
        return std::nullopt;
    const ScoreStatement statement = readScoreLine(bytes, state.code);
    const int caret = byteOfCharacter(bytes, column);
    if (!QByteArrayView("idq").contains(statement.letter) || statement.letter == 0 ||
        caret <= statement.letterAt)
        return std::nullopt;
    ScoreFieldAtCaret field{statement.letter, 1, caret, 0};
    int end = statement.letterAt + 1;
    for (const ScoreRange &range : statement.fields) {
        if (caret < range.start)
            break;
        end = range.start + range.length;
        if (caret <= end) {
            field.start = range.start;
            field.length = range.length;
            return field;
        }
        ++field.number;
    }
    // Between two fields, or where the next would be: unless a comment begins before it.
    const QByteArrayView between = bytes.sliced(end, caret - end);
    const bool isBlank =
        std::all_of(between.begin(), between.end(), [](char c) { return c == ' ' || c == '\t'; });
    return isBlank ? std::optional(field) : std::nullopt;
}

} // namespace ardiphon
