#include "check/CodeLines.h"
#include "check/PieceFacts.h"
#include "piece/PieceSymbol.h"
#include "piece/StatementTokens.h"

#include <algorithm>

namespace ardiphon {

namespace {

/// A statement, its lines one behind the other.
struct JoinedStatement
{
    struct Part
    {
        int offset; ///< in the text
        int line;
    };

    QByteArray text;
    CodeTokens tokens;
    QVarLengthArray<Part, 4> parts;
};

bool isIn(QByteArrayView word, std::initializer_list<QByteArrayView> words)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

bool isAssignment(QByteArrayView symbol) { return isIn(symbol, {"=", "+=", "-=", "*=", "/="}); }

bool isJump(QByteArrayView word) { return word.endsWith("goto"); }

/// The opcodes of the language and of a piece, as each is asked for many times.
class OpcodeCache
{
public:
    explicit OpcodeCache(const Piece &piece) : m_piece(piece) {}

    bool contains(QByteArrayView name)
    {
        const auto key = QByteArray::fromRawData(name.data(), name.size());
        const auto found = m_known.constFind(key);
        if (found != m_known.constEnd())
            return *found;
        const bool isOne = m_piece.isOpcode(name) || m_piece.definesOpcode(name);
        m_known.insert(name.toByteArray(), isOne);
        return isOne;
    }

private:
    const Piece &m_piece;
    QHash<QByteArray, bool> m_known;
};

/// Takes the facts of one statement.
class StatementFacts : private StatementTokens
{
public:
    StatementFacts(OpcodeCache &opcodes, const PieceText &text, const JoinedStatement &statement,
                   OrchestraFacts &facts, int body, int number)
        : StatementTokens(statement.text, statement.tokens),
          m_opcodes(opcodes),
          m_role(text.role()),
          m_statement(statement),
          m_facts(facts),
          m_body(body),
          m_number(number)
    {
    }

    void read()
    {
        qsizetype first = 0;
        m_uses.resize(m_tokens.size());
        for (qsizetype at = 0; at < size(); ++at)
            m_uses[at] = isName(at) && m_opcodes.contains(word(at)) ? Use::Opcode : Use::Other;
        if (isLabel()) {
            m_facts.jumps.append({word(0).toByteArray(), m_body, m_number, true, false});
            first = 2;
        }
        readJump(first);
        const qsizetype call = calledAt(first);
        if (call >= 0) {
            const bool hasBrackets = isSymbol(call + 1, "(") && bracketEnd(call + 1) == size() - 1;
            addCall(call, hasBrackets ? call + 2 : call + 1, hasBrackets ? size() - 1 : size());
        }
        readFunctions(first);
        readNames(first, call);
    }

    PiecePlace place(qsizetype at) const
    {
        const CodeToken &token = m_tokens[at];
        auto part = m_statement.parts.end() - 1;
        while (part != m_statement.parts.begin() && part->offset > token.start)
            --part;
        const QByteArrayView line = m_text.sliced(part->offset);
        const int column = charactersOf(line, token.start - part->offset);
        return {m_role, part->line, column,
                charactersOf(line, token.end() - part->offset) - column};
    }

private:
    enum class Use : quint8 { Other, Opcode, Called };

    qsizetype size() const { return m_tokens.size(); }
    bool isOpcode(qsizetype at) const { return has(at) && m_uses[at] == Use::Opcode; }

    void readJump(qsizetype first)
    {
        for (qsizetype at = first; at < size(); ++at) {
            if (isName(at) && isJump(word(at)) && isName(at + 1))
                m_facts.jumps.append({word(at + 1).toByteArray(), m_body, m_number, false,
                                      at == first && isIn(word(at), {"goto", "igoto"})});
        }
    }

    /// The opcode that is called by a statement of its own; -1 for none.
    qsizetype calledAt(qsizetype first) const
    {
        if (!isName(first) || blockWord(word(first)) || isLanguageWord(word(first)))
            return -1;
        qsizetype at = first;
        for (; isName(at); at += isSymbol(at, ",") ? 1 : 0) {
            const qsizetype behind = behindVariable(at);
            if (isOpcode(at) && !(has(behind) && isAssignment(word(behind))) &&
                !(at == first && isSymbol(at + 1, ",")))
                return at;
            at = behind;
        }
        const qsizetype called = calledOpcode(first);
        const bool isValue = called < 0 || isLanguageWord(word(called)) || isPartOfAName(called);
        return isValue ? -1 : called;
    }

    /// Where the bracket ends that \a at opens; the last token where it does not.
    qsizetype bracketEnd(qsizetype at) const
    {
        int depth = 0;
        for (; at < size(); ++at) {
            depth += isSymbol(at, "(") || isSymbol(at, "[") ? 1 : 0;
            depth -= isSymbol(at, ")") || isSymbol(at, "]") ? 1 : 0;
            if (depth == 0)
                return at;
        }
        return size() - 1;
    }

    void readFunctions(qsizetype first)
    {
        for (qsizetype at = first; at < size(); ++at) {
            if (!isName(at) || isType(at) || isMember(at) || isLanguageWord(word(at)) ||
                blockWord(word(at)) || m_uses[at] == Use::Called)
                continue;
            const bool hasType = isSymbol(at + 1, ":") && isName(at + 2) && touchesNext(at);
            qsizetype bracket = hasType ? at + 3 : at + 1;
            if (hasType && isSymbol(bracket, "[") && isSymbol(bracket + 1, "]"))
                bracket += 2;
            if (isSymbol(bracket, "(") && !isPartOfAName(at))
                addCall(at, bracket + 1, bracketEnd(bracket));
        }
    }

    void addCall(qsizetype at, qsizetype from, qsizetype end)
    {
        m_uses[at] = Use::Called;
        OpcodeCall call{word(at).toByteArray(), place(at), m_body, {}};
        int depth = 0;
        qsizetype begin = from;
        for (qsizetype i = from; i <= end; ++i) {
            const bool isEnd = i == end || (depth == 0 && isSymbol(i, ","));
            if (isEnd && (i > begin || i < end)) {
                call.arguments.append(argument(begin, i));
                begin = i + 1;
            }
            depth += isSymbol(i, "(") || isSymbol(i, "[") ? 1 : 0;
            depth -= isSymbol(i, ")") || isSymbol(i, "]") ? 1 : 0;
        }
        m_facts.called.insert(call.name);
        m_facts.calls.append(call);
    }

    CalledArgument argument(qsizetype from, qsizetype end) const
    {
        using Form = CalledArgument::Form;
        if (from >= end)
            return {};
        CalledArgument result;
        result.place = place(from);
        result.text =
            m_text.sliced(m_tokens[from].start, m_tokens[end - 1].end() - m_tokens[from].start)
                .toByteArray();
        const bool isSigned = isSymbol(from, "-") && end == from + 2;
        const qsizetype value = isSigned ? from + 1 : from;
        if (end != value + 1)
            return result;
        if (isKind(value, CodeTokenKind::Number))
            result.form = Form::Number;
        else if (isName(value))
            result.form = isSigned ? Form::Other : Form::Name;
        else if (isKind(value, CodeTokenKind::Text) && word(value).startsWith('"')) {
            result.form = Form::Text;
            result.text = withoutQuotes(word(value));
        }
        return result;
    }

    static QByteArray withoutQuotes(QByteArrayView text)
    {
        text = text.sliced(1);
        return (text.endsWith('"') ? text.chopped(1) : text).toByteArray();
    }

    /// Where a value is assigned; \a first where none is.
    qsizetype assignmentIn(qsizetype first) const
    {
        for (qsizetype at = first; at < size() && !blockWord(word(first)); ++at) {
            if (isKind(at, CodeTokenKind::Symbol) && isAssignment(word(at)))
                return at;
        }
        return first;
    }

    /// Variables. Those before the opcode, or before the =, are written.
    void readNames(qsizetype first, qsizetype call)
    {
        const qsizetype firstRead = call >= 0 ? call : assignmentIn(first);
        bool isInIndex = false;
        for (qsizetype at = first; at < size(); ++at) {
            if (isKind(at, CodeTokenKind::Text))
                m_facts.texts.insert(word(at).startsWith('"') ? withoutQuotes(word(at))
                                                              : word(at).toByteArray());
            isInIndex = (isInIndex || isSymbol(at, "[")) && !isSymbol(at, "]");
            if (!isName(at))
                continue;
            if (m_uses[at] == Use::Called || isType(at) || isMember(at) || isOther(at))
                continue;
            m_facts.names.append({word(at).toByteArray(), place(at), m_body, m_number,
                                  at < firstRead && !isInIndex});
        }
    }

    /// Whether the word is none of a variable.
    bool isOther(qsizetype at) const
    {
        return isLanguageWord(word(at)) || blockWord(word(at)) || isPartOfAName(at) ||
               pFieldNumber(word(at)) > 0 || isHeaderName(word(at)) || isOpcode(at) ||
               (isName(at - 1) && isJump(word(at - 1))) ||
               isIn(word(at), {"then", "ithen", "kthen", "do", "in"});
    }

    OpcodeCache &m_opcodes;
    const DocumentRole m_role;
    const JoinedStatement &m_statement;
    OrchestraFacts &m_facts;
    const int m_body;
    const int m_number;
    QVarLengthArray<Use, 32> m_uses;
};

class OrchestraFactReader
{
public:
    OrchestraFactReader(const Piece &piece, const PieceText &text) : m_opcodes(piece), m_text(text)
    {
    }

    OrchestraFacts read(LineRun lines)
    {
        visitCode(m_text, lines, [this](int line, const CodeLine &code) {
            add(line, code);
            return true;
        });
        finish();
        endBody();
        numberNamed();
        return m_facts;
    }

private:
    void add(int line, const CodeLine &code)
    {
        m_line = line;
        if (code.isEmpty())
            return;
        const int offset = int(m_joined.text.size());
        m_joined.text.append(code.bytes().data(), code.bytes().size());
        m_joined.text.append('\n');
        m_joined.parts.append({offset, line});
        for (CodeToken token : code.tokens()) {
            token.start += offset;
            m_joined.tokens.append(token);
        }
        const StatementTokens statement(m_joined.text, m_joined.tokens);
        if (!statement.goesOn()) {
            finish();
        } else if (statement.isSymbol(m_joined.tokens.size() - 1, "\\")) {
            m_joined.tokens.removeLast();
        }
    }

    void finish()
    {
        if (!m_joined.tokens.isEmpty())
            take();
        m_joined.text.resize(0);
        m_joined.tokens.clear();
        m_joined.parts.clear();
    }

    void take()
    {
        m_facts.hasCode = true;
        const StatementTokens statement(m_joined.text, m_joined.tokens);
        if (takeMacros(statement))
            return;
        StatementFacts facts(m_opcodes, m_text, m_joined, m_facts, m_body, m_number++);
        if (statement.word(0) == "instr")
            return takeInstrument(statement, facts);
        if (statement.word(0) == "opcode" && statement.isName(1)) {
            beginBody(LandmarkKind::Opcode);
        } else if (isIn(statement.word(0), {"endin", "endop"})) {
            endBody();
        } else if (statement.word(0) != "struct") {
            facts.read();
        }
    }

    /// True where the statement is one of the preprocessor.
    bool takeMacros(const StatementTokens &statement)
    {
        for (qsizetype at = 0; at < m_joined.tokens.size(); ++at) {
            if (statement.isKind(at, CodeTokenKind::MacroText))
                m_facts.macroText += statement.word(at).toByteArray() + ' ';
            if (statement.isKind(at, CodeTokenKind::MacroText) &&
                statement.word(at).contains("instr"))
                m_facts.hasHiddenHead = true;
            if (statement.isKind(at, CodeTokenKind::MacroUse) && m_body >= 0)
                m_facts.bodies[m_body].usesMacro = true;
        }
        if (!statement.isKind(0, CodeTokenKind::Directive))
            return statement.isKind(0, CodeTokenKind::MacroText);
        const QByteArrayView directive = statement.word(0).sliced(1).trimmed();
        m_facts.hasInclude |= directive.startsWith("include");
        if (directive.startsWith("if") && m_body >= 0)
            m_facts.bodies[m_body].hasBranches = true;
        return true;
    }

    void takeInstrument(const StatementTokens &statement, const StatementFacts &facts)
    {
        beginBody(LandmarkKind::Instrument);
        for (qsizetype at = 1; at < m_joined.tokens.size(); ++at) {
            if (statement.isKind(at, CodeTokenKind::MacroUse))
                m_facts.hasHiddenHead = true;
            else if (statement.isName(at) || statement.isKind(at, CodeTokenKind::Number))
                m_facts.bodies[m_body].heads.append(
                    {plainNumber(statement.word(at)), facts.place(at)});
        }
    }

    /// An instrument with a name has the next number that is free.
    void numberNamed()
    {
        int number = 1;
        for (int i = 0; i < m_facts.bodies.size(); ++i) {
            for (const InstrumentHead &head : m_facts.bodies[i].heads)
                m_facts.instruments[head.name].append(i);
        }
        for (const CheckedBody &body : m_facts.bodies) {
            for (const InstrumentHead &head : body.heads) {
                if (head.name[0] >= '0' && head.name[0] <= '9')
                    continue;
                while (m_facts.instruments.contains(QByteArray::number(number)))
                    ++number;
                m_facts.numbersOfNamed.insert(QByteArray::number(number++));
            }
        }
    }

    void beginBody(LandmarkKind kind)
    {
        endBody();
        m_body = int(m_facts.bodies.size());
        const int first = m_joined.parts.front().line;
        m_facts.bodies.append({kind, {}, {first, m_line}, m_facts.names.size()});
    }

    void endBody()
    {
        if (m_body >= 0)
            m_facts.bodies[m_body].lines.last = m_line;
        m_body = -1;
    }

    OpcodeCache m_opcodes;
    const PieceText &m_text;
    OrchestraFacts m_facts;
    JoinedStatement m_joined;
    int m_body = -1;
    int m_number = 0;
    int m_line = 1;
};

} // namespace

OrchestraFacts orchestraFacts(const Piece &piece, const PieceText &text, LineRun lines)
{
    return OrchestraFactReader(piece, text).read(lines);
}

} // namespace ardiphon
