#include "piece/OrchestraColours.h"

#include "piece/CodeTokens.h"
#include "piece/OrchestraWords.h"

namespace ardiphon {

namespace {

/// Whether what follows the word, last in its line, is a label.
bool jumpsToLabel(QByteArrayView word)
{
    static constexpr QByteArrayView Others[] = {"reinit",  "timout",  "loop_lt",
                                                "loop_le", "loop_gt", "loop_ge"};
    return word.endsWith("goto") ||
           std::find(std::begin(Others), std::end(Others), word) != std::end(Others);
}

class OrchestraPainter
{
public:
    OrchestraPainter(QByteArrayView line, PieceState &state, const IsOpcode &isOpcode,
                     MeaningPaint &paint)
        : m_line(line), m_state(state), m_isOpcode(isOpcode), m_paint(paint), m_begins(state.code)
    {
    }

    void read()
    {
        const CodeTokens all = readCodeLine(m_line, m_state.code);
        for (const CodeToken &token : all) {
            const bool goesOn = m_begins == CodeState::Macro && &token == all.cbegin();
            if (token.kind == CodeTokenKind::MacroText)
                paintMacroText(token, !goesOn);
            else
                paintToken(token, 0);
            if (token.kind != CodeTokenKind::Comment && token.kind != CodeTokenKind::MacroText)
                m_tokens.append(token);
        }
        readStatement();
    }

private:
    bool has(qsizetype at) const { return at < m_tokens.size(); }
    QByteArrayView word(qsizetype at) const
    {
        return has(at) ? m_tokens[at].in(m_line) : QByteArrayView();
    }
    bool isKind(qsizetype at, CodeTokenKind kind) const
    {
        return has(at) && m_tokens[at].kind == kind;
    }
    bool isSymbol(qsizetype at, QByteArrayView symbol) const
    {
        return isKind(at, CodeTokenKind::Symbol) && word(at) == symbol;
    }
    void paint(qsizetype at, Meaning meaning)
    {
        m_paint.paint(m_tokens[at].start, m_tokens[at].length, meaning);
    }
    bool goesOn() const
    {
        const qsizetype last = m_tokens.size() - 1;
        return last >= 0 && (isSymbol(last, "\\") || isSymbol(last, ","));
    }

    /// A token by itself, \a offset bytes further on.
    void paintToken(const CodeToken &token, int offset)
    {
        const int start = token.start + offset;
        const QByteArrayView text = m_line.sliced(start, token.length);
        switch (token.kind) {
        case CodeTokenKind::Comment:
            return m_paint.paint(start, token.length, Meaning::Comment);
        case CodeTokenKind::Text:
            return m_paint.paint(start, token.length, Meaning::Text);
        case CodeTokenKind::MacroUse:
            return m_paint.paint(start, token.length, Meaning::Macro);
        case CodeTokenKind::Name:
            return m_paint.paint(start, token.length, meaningOfName(start, text));
        case CodeTokenKind::Number:
            if (text == "0dbfs")
                m_paint.paint(start, token.length, Meaning::Opcode);
            return;
        case CodeTokenKind::Directive:
            if (m_isOpcode('#' + text.sliced(1).trimmed().toByteArray()))
                m_paint.paint(start, token.length, Meaning::Opcode);
            else
                m_paint.paint(start, token.length, Meaning::Plain);
            return;
        case CodeTokenKind::Symbol:
            if (text.endsWith('='))
                m_paint.paint(start + (text == "==" ? 0 : token.length - 1), text == "==" ? 2 : 1,
                              Meaning::Assignment);
            return;
        case CodeTokenKind::MacroText:
            return;
        }
    }

    Meaning meaningOfName(int start, QByteArrayView name) const
    {
        if (isForeign(start - 1) || isForeign(start + int(name.size())))
            return Meaning::Plain;
        if (name == "instr" || name == "endin")
            return Meaning::BodyWord;
        if (pFieldNumber(name) > 0)
            return Meaning::PField;
        return m_isOpcode(name) ? Meaning::Opcode : Meaning::Plain;
    }

    /// Part of a letter that no name of the language has.
    bool isForeign(int at) const
    {
        return at >= 0 && at < m_line.size() && static_cast<unsigned char>(m_line[at]) > 127;
    }

    /// What stands between the # is read by itself, as it is read again where it is used.
    void paintMacroText(const CodeToken &token, bool begins)
    {
        const QByteArrayView text = token.in(m_line);
        const int start = begins ? 1 : 0;
        const bool ends = text.size() > start && text.endsWith('#') &&
                          !(text.size() > start + 1 && text[text.size() - 2] == '\\');
        CodeState state = CodeState::Code;
        const QByteArrayView inside = text.sliced(start, text.size() - start - (ends ? 1 : 0));
        for (const CodeToken &part : readCodeLine(inside, state))
            paintToken(part, token.start + start);
    }

    void readStatement()
    {
        const Continuation before = m_state.continuation;
        if (m_tokens.isEmpty())
            return;
        m_state.continuation = goesOn() ? Continuation::Statement : Continuation::None;
        if (before == Continuation::InstrumentNames)
            readInstrumentNames(0);
        else if (before == Continuation::None && isKind(0, CodeTokenKind::Directive))
            readDirective();
        else if (before == Continuation::None)
            readHeading();
        readJump();
    }

    void readHeading()
    {
        qsizetype at = 0;
        if (isLabel()) {
            paint(0, Meaning::Label);
            at = 2;
        }
        if (!isKind(at, CodeTokenKind::Name))
            return;
        if (word(at) == "instr")
            readInstrumentNames(at + 1);
        else if (word(at) == "opcode" && isKind(at + 1, CodeTokenKind::Name))
            readOpcodeHeading(at + 1);
    }

    /// A name, or a number, with a colon at once and nothing of a type behind it.
    bool isLabel() const
    {
        return isSymbol(1, ":") && m_tokens[0].kind != CodeTokenKind::Text &&
               m_tokens[0].kind != CodeTokenKind::Symbol &&
               m_tokens[1].start == m_tokens[0].end() &&
               (!has(2) || m_tokens[2].start > m_tokens[1].end());
    }

    void readInstrumentNames(qsizetype at)
    {
        for (; has(at); ++at) {
            if (isKind(at, CodeTokenKind::Name))
                paint(at, Meaning::Plain);
            else if (!isKind(at, CodeTokenKind::Number) && !isKind(at, CodeTokenKind::MacroUse) &&
                     !isSymbol(at, ",") && !isSymbol(at, "+"))
                break;
        }
        if (goesOn())
            m_state.continuation = Continuation::InstrumentNames;
    }

    /// The letters of the types are no opcodes, in the notation that has no brackets.
    void readOpcodeHeading(qsizetype at)
    {
        paint(at, Meaning::Opcode);
        if (isSymbol(at + 1, "("))
            return;
        for (++at; has(at); ++at) {
            if (isKind(at, CodeTokenKind::Name))
                paint(at, Meaning::Plain);
        }
    }

    void readDirective()
    {
        const QByteArrayView directive = word(0).sliced(1).trimmed();
        if (!isKind(1, CodeTokenKind::Name) || directive == "include")
            return;
        paint(1, Meaning::Macro);
        if (directive != "define" || !isSymbol(2, "("))
            return;
        for (qsizetype at = 3; has(at) && !isSymbol(at, ")"); ++at) {
            if (isKind(at, CodeTokenKind::Name))
                paint(at, Meaning::Macro);
        }
    }

    void readJump()
    {
        const qsizetype last = m_tokens.size() - 1;
        if (!isKind(last, CodeTokenKind::Name) && !isKind(last, CodeTokenKind::Number))
            return;
        for (qsizetype at = 0; at < last; ++at) {
            if (isKind(at, CodeTokenKind::Name) && jumpsToLabel(word(at)))
                paint(last, Meaning::Label);
        }
    }

    const QByteArrayView m_line;
    PieceState &m_state;
    const IsOpcode &m_isOpcode;
    MeaningPaint &m_paint;
    const CodeState m_begins;
    CodeTokens m_tokens; ///< without comments and texts of macros
};

} // namespace

void paintOrchestraLine(QByteArrayView line, PieceState &state, const IsOpcode &isOpcode,
                        MeaningPaint &paint)
{
    OrchestraPainter(line, state, isOpcode, paint).read();
}

} // namespace ardiphon
