#include "piece/OrchestraLine.h"

#include "piece/CodeTokens.h"
#include "piece/OrchestraWords.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr qsizetype MostToChannel = 100; ///< tokens from an opcode to its text

/// A text without what encloses it.
QByteArrayView withoutQuotes(QByteArrayView text)
{
    if (text.startsWith("{{") || text.startsWith("}}"))
        return {};
    const bool isClosed = text.size() > 1 && text.back() == text.front();
    return text.size() < 2 ? QByteArrayView() : text.sliced(1, text.size() - (isClosed ? 2 : 1));
}

class OrchestraLine
{
public:
    OrchestraLine(LandmarkList &marks, PieceState &state, const IsOpcode &isOpcode)
        : m_marks(marks),
          m_state(state),
          m_isOpcode(isOpcode),
          m_line(marks.text()),
          m_opened(state.code)
    {
        m_all = readCodeLine(m_line, state.code);
        for (const CodeToken &token : m_all) {
            if (token.kind != CodeTokenKind::Comment && token.kind != CodeTokenKind::MacroText)
                m_tokens.append(token);
        }
    }

    void read()
    {
        markWhatIsOpen();
        markTitle();
        const Continuation before = m_state.continuation;
        if (!m_tokens.isEmpty())
            m_state.continuation = Continuation::None;
        if (before == Continuation::InstrumentNames)
            readInstrumentNames(0, true);
        else if (before == Continuation::None)
            readStatement();
        if (m_state.continuation == Continuation::None && goesOn())
            m_state.continuation = Continuation::Statement;
        readInside();
    }

private:
    bool has(qsizetype at) const { return at < m_tokens.size(); }
    QByteArrayView word(qsizetype at) const
    {
        return has(at) ? m_tokens[at].in(m_line) : QByteArrayView();
    }
    bool isName(qsizetype at) const { return has(at) && m_tokens[at].kind == CodeTokenKind::Name; }
    bool isSymbol(qsizetype at, QByteArrayView symbol) const
    {
        return has(at) && m_tokens[at].kind == CodeTokenKind::Symbol && word(at) == symbol;
    }
    void mark(LandmarkKind kind, qsizetype at, int detail = 0)
    {
        m_marks.add(kind, m_tokens[at].start, m_tokens[at].length, detail);
    }
    bool goesOn() const
    {
        return !m_tokens.isEmpty() &&
               (isSymbol(m_tokens.size() - 1, "\\") || isSymbol(m_tokens.size() - 1, ","));
    }

    /// Comments and macros of several lines begin or end here.
    void markWhatIsOpen()
    {
        if (m_opened == m_state.code)
            return;
        if (m_opened == CodeState::BlockComment)
            m_marks.add(LandmarkKind::BlockEnd, 0, 0, int(BlockFamily::Comment));
        if (m_opened == CodeState::Macro)
            m_marks.add(LandmarkKind::MacroEnd, 0, 0);
        if (m_state.code == CodeState::BlockComment)
            m_marks.add(LandmarkKind::BlockBegin, m_all.last().start, 2, int(BlockFamily::Comment));
    }

    void markTitle()
    {
        if (m_all.size() != 1 || m_opened != CodeState::Code ||
            m_all[0].kind != CodeTokenKind::Comment || !m_all[0].in(m_line).startsWith(";;;"))
            return;
        QByteArrayView title = m_all[0].in(m_line).sliced(3).trimmed();
        if (!title.isEmpty() && title[0] != ';')
            m_marks.add(LandmarkKind::Title, int(title.data() - m_line.data()), int(title.size()));
    }

    void readStatement()
    {
        qsizetype at = 0;
        if (has(0) && m_tokens[0].kind == CodeTokenKind::Directive) {
            readDirective();
            return;
        }
        if (isLabel()) {
            mark(LandmarkKind::Label, 0);
            at = 2;
        }
        if (!readHeading(at)) {
            readBlockWords(at);
            readOutputs(at);
        }
    }

    /// A name, or a number, with a colon at once and nothing of a type behind it.
    bool isLabel() const
    {
        return has(1) && isSymbol(1, ":") && m_tokens[0].kind != CodeTokenKind::Text &&
               m_tokens[0].kind != CodeTokenKind::Symbol &&
               m_tokens[1].start == m_tokens[0].end() &&
               (!has(2) || m_tokens[2].start > m_tokens[1].end());
    }

    void readDirective()
    {
        const QByteArrayView directive = word(0).sliced(1).trimmed();
        if (directive == "define" && isName(1))
            mark(LandmarkKind::Macro, 1, argumentCount());
        else if (directive == "include" && has(1) && m_tokens[1].kind == CodeTokenKind::Text)
            markText(LandmarkKind::Include, 1, 0);
        else if (directive == "ifdef" || directive == "ifndef")
            m_marks.add(LandmarkKind::BranchBegin, m_tokens[0].start, m_tokens[0].length, 0,
                        word(1));
        else if (directive == "else")
            mark(LandmarkKind::BranchMiddle, 0);
        else if (directive == "end" || directive == "endif")
            mark(LandmarkKind::BranchEnd, 0);
    }

    /// Of the macro that the line defines: the names between the brackets.
    int argumentCount() const
    {
        if (!isSymbol(2, "(") || m_tokens[2].start > m_tokens[1].end())
            return 0;
        int count = 0;
        for (qsizetype at = 3; has(at) && !isSymbol(at, ")"); ++at)
            count += isName(at) ? 1 : 0;
        return count;
    }

    void markText(LandmarkKind kind, qsizetype at, int detail)
    {
        const QByteArrayView text = withoutQuotes(word(at));
        if (!text.isEmpty())
            m_marks.add(kind, int(text.data() - m_line.data()), int(text.size()), detail);
    }

    /// What begins or ends an instrument, an opcode or a type.
    bool readHeading(qsizetype at)
    {
        const QByteArrayView first = isName(at) ? word(at) : QByteArrayView();
        if (first == "instr")
            beginInstrument(at);
        else if (first == "opcode" && isName(at + 1))
            beginOpcode(at);
        else if (first == "endin")
            endBody(LandmarkKind::InstrumentEnd, at);
        else if (first == "endop")
            endBody(LandmarkKind::OpcodeEnd, at);
        else if (first == "struct" && isName(at + 1))
            mark(LandmarkKind::Struct, at + 1);
        else
            return false;
        return true;
    }

    void beginInstrument(qsizetype at)
    {
        m_marks.beginBody();
        m_state.body = PieceBody::Instrument;
        readInstrumentNames(at + 1, false);
    }

    /// Numbers and names, with commas between.
    void readInstrumentNames(qsizetype at, bool goesOnFromAbove)
    {
        int index = goesOnFromAbove ? 1 : 0;
        for (; has(at); ++at) {
            const CodeTokenKind kind = m_tokens[at].kind;
            if (kind == CodeTokenKind::Name || kind == CodeTokenKind::Number ||
                kind == CodeTokenKind::MacroUse)
                mark(LandmarkKind::Instrument, at, index++);
            else if (!isSymbol(at, ",") && !isSymbol(at, "+"))
                break;
        }
        if (goesOn())
            m_state.continuation = Continuation::InstrumentNames;
    }

    void beginOpcode(qsizetype at)
    {
        m_marks.beginBody();
        m_state.body = PieceBody::Opcode;
        const bool hasBrackets = isSymbol(at + 2, "(");
        mark(LandmarkKind::Opcode, at + 1, hasBrackets ? 1 : 0);
        for (qsizetype i = at + 3; hasBrackets && has(i) && !isSymbol(i, ")"); ++i) {
            const bool begins = isSymbol(i - 1, "(") || isSymbol(i - 1, ",");
            if (begins && isName(i))
                markVariable(i, typeBehind(i), false);
        }
    }

    void endBody(LandmarkKind kind, qsizetype at)
    {
        mark(kind, at);
        m_state.body = PieceBody::None;
        m_marks.beginBody();
    }

    void readBlockWords(qsizetype at)
    {
        for (qsizetype i = at; has(i); ++i) {
            const std::optional<BlockWord> found = isName(i) ? blockWord(word(i)) : std::nullopt;
            if (!found || (i > at && found->kind != LandmarkKind::BlockEnd))
                continue;
            if (word(i) != "if" || opensCondition(i))
                mark(found->kind, i, int(found->family));
        }
    }

    /// Whether an if has its statements below; one that jumps has none.
    bool opensCondition(qsizetype at) const
    {
        for (qsizetype i = at + 1; has(i); ++i) {
            if (isName(i) && (word(i) == "then" || word(i) == "ithen" || word(i) == "kthen"))
                return true;
            if (isName(i) && word(i).endsWith("goto"))
                return false;
        }
        return goesOn();
    }

    /// The variables at the left of an opcode or of an assignment.
    void readOutputs(qsizetype first)
    {
        QVarLengthArray<qsizetype, 8> outputs;
        qsizetype at = first;
        while (isName(at)) {
            outputs.append(at);
            at = behindVariable(at);
            if (!isSymbol(at, ","))
                break;
            ++at;
        }
        if (outputs.isEmpty() || !isAssigned(outputs, at)) {
            if (!outputs.isEmpty() || !has(first) || word(first) != "0dbfs" ||
                !isSymbol(first + 1, "="))
                return;
            mark(LandmarkKind::Header, first);
            return;
        }
        for (const qsizetype output : outputs)
            markOutput(output);
        if (isName(at) && makesTable(word(at)))
            markTable(outputs[0], at);
    }

    /// Behind a variable with its type and its brackets.
    qsizetype behindVariable(qsizetype at) const
    {
        ++at;
        if (isSymbol(at, ":") && isName(at + 1))
            at += 2;
        while (isSymbol(at, "[")) {
            while (has(at) && !isSymbol(at, "]"))
                ++at;
            at += has(at) ? 1 : 0;
        }
        return at;
    }

    bool isAssigned(const QVarLengthArray<qsizetype, 8> &outputs, qsizetype at) const
    {
        if (!has(at))
            return false;
        if (m_tokens[at].kind == CodeTokenKind::Symbol)
            return word(at) == "=" || (word(at).size() == 2 && word(at)[1] == '=' &&
                                       QByteArrayView("+-*/").contains(word(at)[0]));
        if (m_tokens[at].kind == CodeTokenKind::Name ||
            m_tokens[at].kind == CodeTokenKind::MacroUse)
            return outputs.size() > 1 ||
                   (!m_isOpcode(word(outputs[0])) && !blockWord(word(outputs[0])));
        return false;
    }

    void markOutput(qsizetype at)
    {
        if (isHeaderName(word(at)) && m_state.body == PieceBody::None)
            mark(LandmarkKind::Header, at);
        else
            markVariable(at, typeBehind(at), isSymbol(at + (typeBehind(at) != 0 ? 3 : 1), "["));
    }

    char typeBehind(qsizetype at) const
    {
        return isSymbol(at + 1, ":") && isName(at + 2) ? word(at + 2)[0] : 0;
    }

    void markVariable(qsizetype at, char givenType, bool isArray)
    {
        const char type = givenType != 0 ? givenType : variableType(word(at));
        if (type != 0)
            m_marks.addFirst(isArray ? LandmarkKind::Array : LandmarkKind::Variable,
                             m_tokens[at].start, m_tokens[at].length, type);
    }

    /// A table has a number of its own, or else the variable that takes the one that it gets.
    void markTable(qsizetype variable, qsizetype opcode)
    {
        const qsizetype number = opcode + (isSymbol(opcode + 1, "(") ? 2 : 1);
        const bool hasNumber =
            has(number) && m_tokens[number].kind == CodeTokenKind::Number && word(number) != "0";
        mark(LandmarkKind::Table, hasNumber ? number : variable);
    }

    /// What may be anywhere in a statement: p-fields, channels, texts.
    void readInside()
    {
        for (qsizetype at = 0; has(at); ++at) {
            if (m_tokens[at].kind == CodeTokenKind::Name)
                readName(at);
            else if (m_tokens[at].kind == CodeTokenKind::Text && namesFile(withoutQuotes(word(at))))
                markFile(at);
        }
    }

    void markFile(qsizetype at)
    {
        if (m_tokens[0].kind != CodeTokenKind::Directive)
            markText(LandmarkKind::File, at, 0);
    }

    void readName(qsizetype at)
    {
        if (const int number = pFieldNumber(word(at));
            number > 0 && m_state.body != PieceBody::None)
            m_marks.addFirst(LandmarkKind::PField, m_tokens[at].start, m_tokens[at].length, number);
        else if (const auto use = channelUse(word(at)))
            markText(at, *use);
        else if (word(at) == "strset" && has(at + 1) &&
                 m_tokens[at + 1].kind == CodeTokenKind::Number)
            mark(LandmarkKind::StringSet, at + 1);
    }

    /// The channel of an opcode at \a at: the first text behind it.
    void markText(qsizetype at, ChannelUse use)
    {
        for (qsizetype i = at + 1; has(i) && i < at + MostToChannel; ++i) {
            if (m_tokens[i].kind == CodeTokenKind::Text) {
                markText(LandmarkKind::Channel, i, int(use));
                return;
            }
        }
    }

    LandmarkList &m_marks;
    PieceState &m_state;
    const IsOpcode &m_isOpcode;
    QByteArrayView m_line;
    CodeState m_opened; ///< what was open at the line's beginning
    CodeTokens m_all;
    CodeTokens m_tokens; ///< without comments and the texts of macros
};

} // namespace

void readOrchestraLine(LandmarkList &marks, PieceState &state, const IsOpcode &isOpcode)
{
    OrchestraLine(marks, state, isOpcode).read();
}

} // namespace ardiphon
