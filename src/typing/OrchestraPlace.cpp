#include "typing/OrchestraPlace.h"

#include "piece/OrchestraWords.h"
#include "piece/PieceArguments.h"
#include "piece/PieceSymbol.h"
#include "piece/StatementTokens.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int LinesOfAStatement = 32; ///< above the caret's that are read

bool isAny(QByteArrayView word, std::initializer_list<QByteArrayView> words)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// The part of a statement that is on \a line, without the comment and the sign that it goes on.
QByteArray statementPart(QByteArrayView line, CodeState state)
{
    QByteArray part;
    for (const CodeToken &token : readCodeLine(line, state)) {
        if (token.kind != CodeTokenKind::Comment && token.in(line) != "\\")
            part += token.in(line).toByteArray() + ' ';
    }
    return part;
}

/// What the lines above \a line have of its statement.
QByteArray statementAbove(const PieceText &text, int line)
{
    QByteArray above;
    for (int from = line - 1; from >= 1 && line - from <= LinesOfAStatement; --from) {
        if (text.stateAt(from + 1).continuation != Continuation::Statement)
            break;
        above.prepend(statementPart(text.line(from).toByteArray(), text.stateAt(from).code));
    }
    return above;
}

CodePlace placeOf(PlaceKind kind)
{
    CodePlace place;
    place.kind = kind;
    return place;
}

/// Tells what a statement wants at its end.
class StatementEnd : private StatementTokens
{
public:
    StatementEnd(const Piece &piece, QByteArrayView text, const CodeTokens &tokens)
        : StatementTokens(text, tokens), m_piece(piece)
    {
    }

    CodePlace read()
    {
        if (isKind(0, CodeTokenKind::Directive))
            return placeOf(isAny(directive(), {"ifdef", "ifndef", "undef"}) ? PlaceKind::Macro
                                                                            : PlaceKind::Nothing);
        const qsizetype first = isLabel() ? 2 : 0;
        if (!has(first))
            return placeOf(PlaceKind::Statement);
        if (isAny(word(first), {"instr", "opcode", "struct"}))
            return {};
        if (blockWord(word(first)))
            return readCondition(first);
        return readStatement(first);
    }

private:
    /// An opcode or a bracket whose arguments have begun.
    struct Call
    {
        QByteArray opcode;
        int argument = 1;
        char bracket = 0;
        qsizetype firstToken = 0;
    };

    QByteArrayView directive() const { return word(0).sliced(1).trimmed(); }
    bool isOpcode(QByteArrayView name) const
    {
        return m_piece.isOpcode(name) || m_piece.definesOpcode(name);
    }

    CodePlace readCondition(qsizetype first)
    {
        const qsizetype last = m_tokens.size() - 1;
        if (isAny(word(last), {"then", "ithen", "kthen", "do", "else"}))
            return placeOf(PlaceKind::Statement);
        if (isAny(word(last), {"goto", "igoto", "kgoto"}))
            return placeOf(PlaceKind::Label);
        return readValues(first + 1, {});
    }

    /// Names on the left, then = or an opcode; or an opcode with nothing on its left.
    CodePlace readStatement(qsizetype first)
    {
        qsizetype at = first;
        while (isName(at)) {
            const qsizetype behind = behindVariable(at);
            if (isOpenBracket(at, behind))
                break;
            if (!has(behind))
                return endOfNames(at);
            if (isSymbol(behind, ",")) {
                addLeft(at);
                at = behind + 1;
                if (!has(at))
                    return onTheLeft(PlaceKind::Output);
                continue;
            }
            if (isAny(word(behind), {"=", "+=", "-=", "*=", "/="})) {
                addLeft(at);
                return readValues(behind + 1, {});
            }
            const bool isFirstOpcode = m_left.isEmpty() && isOpcode(word(at)) && behind == at + 1;
            if (isFirstOpcode && (!isName(behind) || !isOpcode(word(behind))))
                return readCalled(at);
            if (!isName(behind))
                break;
            addLeft(at);
            return readCalled(behind);
        }
        return readValues(at, {});
    }

    /// The arguments of the opcode at \a at; in brackets they are those of a value.
    CodePlace readCalled(qsizetype at)
    {
        if (isSymbol(at + 1, "(") && touchesNext(at) && m_left.isEmpty())
            return readValues(at, {});
        return readValues(at + 1, word(at).toByteArray());
    }

    /// The last token is a name at \a at.
    CodePlace endOfNames(qsizetype at)
    {
        if (m_left.isEmpty() && isOpcode(word(at)) && variableLike(at) == 0)
            return readValues(at + 1, word(at).toByteArray());
        addLeft(at);
        return onTheLeft(PlaceKind::Opcode);
    }

    CodePlace onTheLeft(PlaceKind kind) const
    {
        CodePlace place = placeOf(kind);
        place.left = m_left;
        return place;
    }

    /// An opcode of one letter, as a, is more often meant to be the name of a variable.
    char variableLike(qsizetype at) const
    {
        return word(at).size() == 1 ? variableType(word(at)) : '\0';
    }

    bool isOpenBracket(qsizetype at, qsizetype behind) const
    {
        return !has(behind) && behind > at + 1 && !isSymbol(behind - 1, "]") && !isName(behind - 1);
    }

    void addLeft(qsizetype at)
    {
        const bool hasType = isSymbol(at + 1, ":") && isName(at + 2);
        const char type = hasType ? word(at + 2)[0] : variableType(word(at));
        const qsizetype behind = at + (hasType ? 3 : 1);
        m_left.append({type, isSymbol(behind, "[") && isSymbol(behind + 1, "]")});
    }

    /// The innermost call of the values from \a first on, which are the arguments of \a opcode.
    CodePlace readValues(qsizetype first, const QByteArray &opcode)
    {
        QList<Call> calls = {{opcode, 1, 0, first}};
        for (qsizetype at = first; has(at); ++at) {
            if (!isKind(at, CodeTokenKind::Symbol))
                continue;
            const char symbol = word(at)[0];
            if (symbol == '(' || symbol == '[')
                calls.append(openedCall(at, symbol, calls.constLast()));
            else if ((symbol == ')' || symbol == ']') && calls.size() > 1)
                calls.removeLast();
            else if (symbol == ',')
                ++calls.last().argument;
        }
        return placeIn(calls);
    }

    Call openedCall(qsizetype bracket, char symbol, const Call &around) const
    {
        qsizetype name = bracket - 1;
        if (isName(name) && isType(name)) // as oscili:k(
            name -= 2;
        if (symbol == '(' && isName(name) && touchesNext(name) && !isLanguageWord(word(name)))
            return {word(name).toByteArray(), 1, symbol, bracket + 1};
        if (symbol == '[')
            return {QByteArray(), 1, symbol, bracket + 1};
        return {around.opcode, around.argument, symbol, around.firstToken};
    }

    CodePlace placeIn(const QList<Call> &calls) const
    {
        const Call &call = calls.constLast();
        CodePlace place;
        place.left = m_left;
        place.opcode = call.opcode;
        place.argument = call.argument;
        place.isInValue = true;
        for (const Call &open : calls) {
            if (open.bracket != 0)
                place.open += open.bracket;
        }
        place.kind = kindIn(call);
        return place;
    }

    PlaceKind kindIn(const Call &call) const
    {
        const qsizetype last = m_tokens.size() - 1;
        if (isSymbol(last, ":") && touchesNext(last - 1) && isName(last - 1))
            return PlaceKind::Nothing; // the type of a value
        if (call.opcode.isEmpty())
            return PlaceKind::Value;
        if (makesTable(call.opcode) && call.argument == 4)
            return PlaceKind::GenNumber;
        const ArgumentRule *const rule = argumentRule(call.opcode);
        if (rule == nullptr || !rule->isFor(call.argument))
            return PlaceKind::Argument;
        switch (rule->meaning) {
        case ArgumentMeaning::Label:
            return PlaceKind::Label;
        case ArgumentMeaning::Instrument:
            return PlaceKind::Instrument;
        case ArgumentMeaning::Event:
            return isAny(word(call.firstToken), {"\"i\"", "\"d\"", "\"q\""}) ? PlaceKind::Instrument
                                                                             : PlaceKind::Argument;
        case ArgumentMeaning::Channel:
            return PlaceKind::Channel;
        case ArgumentMeaning::ScoreText:
            break;
        }
        return PlaceKind::Argument;
    }

    const Piece &m_piece;
    QList<ValueType> m_left;
};

/// What is open at the end of the code, and what stands there.
class CodeEnd
{
public:
    CodeEnd(const Piece &piece, const QByteArray &above, QByteArrayView before, CodeState state)
        : m_piece(piece),
          m_above(int(above.size())),
          m_code(above + before.toByteArray()),
          m_state(state)
    {
        for (const CodeToken &token : readCodeLine(m_code, m_state)) {
            if (token.kind == CodeTokenKind::Comment && token.end() == m_code.size())
                m_isInComment =
                    m_isInComment || isLineComment(token) || m_state == CodeState::BlockComment;
            if (token.kind != CodeTokenKind::Comment)
                m_tokens.append(token);
        }
    }

    CodePlace read()
    {
        if (m_isInComment || m_state == CodeState::Braces || m_state == CodeState::RawString)
            return {};
        if (m_state == CodeState::Macro)
            return readMacroText();
        if (m_tokens.isEmpty())
            return at(PlaceKind::Statement, int(m_code.size()));
        const CodeToken last = m_tokens.last();
        if (last.kind == CodeTokenKind::Text && isOpenText(m_code, last.start))
            return readText(last);
        if (last.end() != m_code.size())
            return readBehind(int(m_code.size()));
        switch (last.kind) {
        case CodeTokenKind::MacroUse:
            return at(last.in(m_code).endsWith('.') ? PlaceKind::Nothing : PlaceKind::Macro,
                      last.start);
        case CodeTokenKind::Name:
        case CodeTokenKind::Number:
            return readWord(last);
        case CodeTokenKind::Directive:
            return at(PlaceKind::Directive, last.start);
        case CodeTokenKind::Symbol:
            if (last.in(m_code) == "$")
                return at(PlaceKind::Macro, last.start);
            if (last.in(m_code) == "#" && m_tokens.size() == 1)
                return at(PlaceKind::Directive, last.start);
            break;
        default:
            break;
        }
        return readBehind(int(m_code.size()));
    }

private:
    bool isLineComment(const CodeToken &token) const
    {
        return token.in(m_code).startsWith(';') || token.in(m_code).startsWith("//");
    }

    CodePlace at(PlaceKind kind, int start) const
    {
        CodePlace place;
        place.kind = kind;
        place.start = start - m_above;
        return place;
    }

    CodePlace readWord(const CodeToken &last)
    {
        m_tokens.removeLast();
        if (!m_tokens.isEmpty() && m_tokens.last().end() == last.start) {
            const QByteArrayView before = m_tokens.last().in(m_code);
            if (before == "#" && m_tokens.size() == 1)
                return at(PlaceKind::Directive, last.start - 1);
            if (before == ".")
                return {};
        }
        return readBehind(last.start);
    }

    CodePlace readBehind(int start)
    {
        CodePlace place = StatementEnd(m_piece, m_code, m_tokens).read();
        place.start = start - m_above;
        return place;
    }

    CodePlace readText(const CodeToken &text)
    {
        m_tokens.removeLast();
        CodePlace place = readBehind(text.start + 1);
        const bool isInclude =
            !m_tokens.isEmpty() && m_tokens.last().in(m_code).startsWith("#include");
        if (isInclude)
            place.kind = PlaceKind::File;
        else if (place.kind == PlaceKind::Argument)
            place.kind = PlaceKind::Text;
        else if (place.kind != PlaceKind::Instrument && place.kind != PlaceKind::Channel)
            place.kind = PlaceKind::Nothing;
        place.isQuoted = true;
        place.open += '"';
        return place;
    }

    /// As if what stands behind the # were a line.
    CodePlace readMacroText()
    {
        const int begin = m_tokens.isEmpty() ? 0 : m_tokens.last().start;
        const bool hasSign = begin < m_code.size() && m_code[begin] == '#';
        const QByteArray text = m_code.sliced(begin + (hasSign ? 1 : 0));
        CodePlace place = CodeEnd(m_piece, QByteArray(), text, CodeState::Code).read();
        place.start += int(m_code.size() - text.size()) - m_above;
        return place;
    }

    const Piece &m_piece;
    const int m_above; ///< how much of the code is not in the caret's line
    const QByteArray m_code;
    CodeState m_state;
    CodeTokens m_tokens;
    bool m_isInComment = false;
};

} // namespace

CodePlace orchestraPlace(const Piece &piece, const PieceText &text, int line, QByteArrayView before)
{
    const QByteArray here = before.toByteArray(); // a question for another line ends the view
    const PieceState state = text.stateAt(line);
    if (state.continuation == Continuation::InstrumentNames)
        return {};
    const bool goesOn =
        state.continuation == Continuation::Statement && state.code == CodeState::Code;
    return CodeEnd(piece, goesOn ? statementAbove(text, line) : QByteArray(), here, state.code)
        .read();
}

bool isOpenText(QByteArrayView line, int start)
{
    if (line[start] != '"')
        return line[start] != '{' && line[start] != 'R' &&
               line.indexOf(line[start], start + 1) < 0; // of #include
    for (qsizetype at = start + 1; at < line.size(); ++at) {
        if (line[at] == '\\')
            ++at;
        else if (line[at] == '"')
            return false;
    }
    return true;
}

int wordStart(QByteArrayView line)
{
    const auto isOfName = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '_';
    };
    qsizetype start = line.size();
    while (start > 0 && isOfName(line[start - 1]))
        --start;
    return int(start);
}

} // namespace ardiphon
