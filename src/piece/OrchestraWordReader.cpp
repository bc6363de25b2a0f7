#include "piece/OrchestraWordReader.h"

#include "piece/OrchestraWords.h"
#include "piece/StatementTokens.h"

#include <algorithm>

namespace ardiphon {

namespace {

bool isIn(QByteArrayView word, std::initializer_list<QByteArrayView> words)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// The words of the tokens of a line, or of a macro's text within a line.
class StatementWords : private StatementTokens
{
public:
    StatementWords(QByteArrayView text, int offset, const CodeTokens &tokens, PieceState &state,
                   OrchestraContext &context, PieceWords &words)
        : StatementTokens(text, tokens),
          m_offset(offset),
          m_state(state),
          m_context(context),
          m_words(words)
    {
        m_like.body = state.body;
    }

    void setInMacro() { m_like.isInMacro = true; }

    /// \a isOpen where the line begins within a text of several lines.
    void read(bool isOpen)
    {
        const Continuation before = m_state.continuation;
        qsizetype at = 0;
        if (isOpen && has(0) && m_tokens[0].kind == CodeTokenKind::Text)
            at = 1; // readText() has its words
        if (!m_tokens.isEmpty())
            m_state.continuation = Continuation::None;
        if (before == Continuation::InstrumentNames)
            at = readInstrumentNames(at);
        else if (before == Continuation::None) {
            m_context.calls.clear();
            at = isOpen ? at : readBeginning();
        }
        for (; has(at); ++at)
            readToken(at);
        if (m_state.continuation == Continuation::None && goesOn())
            m_state.continuation = Continuation::Statement;
    }

private:
    PieceWord &add(WordUse use, int start, int length)
    {
        PieceWord found = m_like;
        found.use = use;
        found.body = m_state.body;
        found.start = found.literalStart = m_offset + start;
        found.length = found.literalLength = length;
        found.name = m_text.sliced(start, length);
        m_words.append(found);
        return m_words.last();
    }
    PieceWord &add(WordUse use, qsizetype at)
    {
        return add(use, m_tokens[at].start, m_tokens[at].length);
    }

    /// What only the beginning of a statement can be; returns the first token behind it.
    qsizetype readBeginning()
    {
        if (isKind(0, CodeTokenKind::Directive))
            return readDirective();
        qsizetype at = 0;
        if (isLabel()) {
            add(WordUse::Label, 0).defines = true;
            at = 2;
        }
        if (isName(at) && isIn(word(at), {"instr", "opcode", "struct"}))
            add(WordUse::Name, at);
        if (isName(at) && word(at) == "instr") {
            m_state.body = PieceBody::Instrument;
            return readInstrumentNames(at + 1);
        }
        if (isName(at) && word(at) == "opcode" && isName(at + 1))
            return readOpcodeHeading(at + 1);
        if (isName(at) && word(at) == "struct")
            return m_tokens.size();
        if (isName(at) && isIn(word(at), {"endin", "endop"}))
            m_state.body = PieceBody::None;
        m_call = calledOpcode(at);
        return at;
    }

    qsizetype readDirective()
    {
        const QByteArrayView directive = word(0).sliced(1).trimmed();
        if (isIn(directive, {"define", "undef", "ifdef", "ifndef"}) && isName(1))
            add(WordUse::Macro, 1).defines = directive == "define";
        if (directive != "define")
            return m_tokens.size();
        m_context.macro.arguments.clear();
        if (!isSymbol(2, "(") || !touchesNext(1))
            return m_tokens.size();
        for (qsizetype at = 3; has(at) && !isSymbol(at, ")"); ++at) {
            if (!isName(at))
                continue;
            add(WordUse::MacroArgument, at).defines = true;
            m_context.macro.arguments.append(word(at).toByteArray());
        }
        return m_tokens.size();
    }

    qsizetype readInstrumentNames(qsizetype at)
    {
        for (; has(at); ++at) {
            if (isName(at)) {
                addHeadingName(at);
            } else if (isKind(at, CodeTokenKind::Number)) {
                addNumber(at, at).defines = true;
                m_words.last().form = WordForm::Plain;
            } else if (isKind(at, CodeTokenKind::MacroUse)) {
                readMacroUse(at);
            } else if (!isSymbol(at, ",") && !isSymbol(at, "+")) {
                break;
            }
        }
        if (goesOn())
            m_state.continuation = Continuation::InstrumentNames;
        return m_tokens.size();
    }

    /// A name, with the + that may be in front.
    void addHeadingName(qsizetype at)
    {
        PieceWord &found = add(WordUse::Instrument, at);
        found.defines = true;
        if (!isSymbol(at - 1, "+"))
            return;
        found.literalStart = m_offset + m_tokens[at - 1].start;
        found.literalLength = found.end() - found.literalStart;
    }

    /// The types of the old notation are no words; the new one has names with types.
    qsizetype readOpcodeHeading(qsizetype at)
    {
        m_state.body = PieceBody::Opcode;
        add(WordUse::OpcodeName, at).defines = true;
        if (!isSymbol(at + 1, "("))
            return m_tokens.size();
        for (++at; has(at) && !isSymbol(at, ")"); ++at) {
            if (isName(at) && (isSymbol(at - 1, "(") || isSymbol(at - 1, ",")))
                add(WordUse::Name, at);
        }
        return m_tokens.size();
    }

    void readToken(qsizetype at)
    {
        switch (m_tokens[at].kind) {
        case CodeTokenKind::Name:
            readName(at);
            return;
        case CodeTokenKind::Number:
            readNumber(at);
            break;
        case CodeTokenKind::Text:
            readText(at);
            break;
        case CodeTokenKind::MacroUse:
            readMacroUse(at);
            break;
        case CodeTokenKind::Symbol:
            readSymbol(at);
            return;
        case CodeTokenKind::Directive:
        case CodeTokenKind::MacroText:
        case CodeTokenKind::Comment:
            return;
        }
        m_context.calls.addToken();
    }

    void readName(qsizetype at)
    {
        if (m_questions == 0 && isType(at))
            return;
        const auto meaning = m_context.calls.meaning();
        m_context.calls.addToken();
        if (isPartOfAName(at) || isMember(at))
            return;
        if (meaning == ArgumentMeaning::Label) {
            add(WordUse::Label, at);
            return;
        }
        const bool isCalled = at == m_call || isSymbol(at + 1, "(") ||
                              (isSymbol(at + 1, ":") && isName(at + 2) && isSymbol(at + 3, "("));
        const QByteArrayView name = word(at);
        if (pFieldNumber(name) > 0)
            add(WordUse::PField, at);
        else
            add(isCalled ? WordUse::Call : WordUse::Name, at);
        if (const ArgumentRule *const rule = argumentRule(name))
            m_context.calls.begin(*rule);
    }

    void readNumber(qsizetype at)
    {
        if (isPartOfAName(at) || !endsArgument(at))
            return;
        const bool hasSign = isSymbol(at - 1, "-");
        const auto meaning = m_context.calls.meaning(hasSign ? 1 : 0);
        if (meaning == ArgumentMeaning::Label && !hasSign)
            add(WordUse::Label, at);
        else if (meaning == ArgumentMeaning::Instrument)
            addNumber(at, hasSign ? at - 1 : at);
    }

    /// A number of an instrument, whose sign is the token \a sign or none.
    PieceWord &addNumber(qsizetype at, qsizetype sign)
    {
        PieceWord &found = add(WordUse::Instrument, at);
        if (!readInstrumentLiteral(word(at), found.start, found)) {
            found.use = WordUse::Name; // zero, or no number of an instrument
            return found;
        }
        if (sign != at) {
            found.literalStart = m_offset + m_tokens[sign].start;
            found.literalLength = m_offset + m_tokens[at].end() - found.literalStart;
        }
        limitForm(found);
        return found;
    }

    void limitForm(PieceWord &found)
    {
        const ArgumentRule *const rule = m_context.calls.rule();
        found.isNameOnly = rule && !rule->takesNumber;
        found.isNumberOnly = rule && !rule->takesName;
    }

    void readText(qsizetype at)
    {
        const QByteArrayView text = word(at);
        const int start = m_tokens[at].start;
        const auto meaning = m_context.calls.meaning();
        if (text.startsWith("{{")) {
            const bool isClosed = text.size() >= 4 && text.endsWith("}}");
            m_context.isScoreText = meaning == ArgumentMeaning::ScoreText;
            if (m_context.isScoreText)
                readScoreText(text.sliced(2, text.size() - (isClosed ? 4 : 2)),
                              m_offset + start + 2, false, m_words);
            return;
        }
        if (!text.startsWith('"') || text.size() < 2 || !text.endsWith('"'))
            return;
        if (endsArgument(at))
            readArgumentText(at, meaning);
        addMacroUses(text, m_offset + start,
                     m_like.isInMacro ? m_context.macro.arguments : QByteArrayList(), m_like,
                     m_words);
    }

    /// A text in quotes that is a whole argument.
    void readArgumentText(qsizetype at, std::optional<ArgumentMeaning> meaning)
    {
        const QByteArrayView text = word(at);
        const int start = m_tokens[at].start;
        if (isIn(text, {"\"i\"", "\"d\"", "\"q\""}))
            m_context.calls.setNote();
        if (meaning == ArgumentMeaning::Channel && text.size() > 2 && !text.contains('$') &&
            !text.contains('\\')) {
            add(WordUse::Channel, start + 1, m_tokens[at].length - 2);
        } else if (meaning == ArgumentMeaning::ScoreText) {
            readScoreText(text.sliced(1, text.size() - 2), m_offset + start + 1, true, m_words);
        } else if (meaning == ArgumentMeaning::Instrument) {
            PieceWord found = m_like;
            found.body = m_state.body;
            if (readInstrumentLiteral(text, m_offset + start, found)) {
                limitForm(found);
                m_words.append(found);
            }
        }
    }

    void readMacroUse(qsizetype at)
    {
        const QByteArrayList arguments =
            m_like.isInMacro ? m_context.macro.arguments : QByteArrayList();
        addMacroUses(word(at), m_offset + m_tokens[at].start, arguments, m_like, m_words);
    }

    void readSymbol(qsizetype at)
    {
        const QByteArrayView symbol = word(at);
        OpenCalls &calls = m_context.calls;
        if (symbol == "(" || symbol == "[") {
            calls.openBracket(symbol == "(");
        } else if (symbol == ")" || symbol == "]") {
            calls.closeBracket();
        } else if (symbol == ",") {
            calls.nextArgument();
        } else if (symbol == "?") {
            ++m_questions;
        } else if (symbol != "\\") {
            const bool isTypeColon = symbol == ":" && isName(at - 1) && touchesNext(at - 1);
            if (!isTypeColon || m_questions > 0)
                calls.addToken();
        }
    }

    const int m_offset;
    PieceState &m_state;
    OrchestraContext &m_context;
    PieceWords &m_words;
    PieceWord m_like;
    qsizetype m_call = -1;
    int m_questions = 0; ///< a ? whose : may come
};

/// The text of a macro, from \a start on, as if it were a line.
void readMacroText(QByteArrayView text, int start, const OrchestraContext &context,
                   PieceWords &words)
{
    PieceState state;
    OrchestraContext inside;
    inside.macro = context.macro;
    CodeTokens tokens;
    for (const CodeToken &token : readCodeLine(text, state.code)) {
        if (token.kind != CodeTokenKind::Comment)
            tokens.append(token);
    }
    StatementWords reader(text, start, tokens, state, inside, words);
    reader.setInMacro();
    reader.read(false);
}

/// The part of a macro's text that is on the line, without the # at its ends.
void readMacroToken(QByteArrayView line, const CodeToken &token, bool isOpen, bool isClosed,
                    const OrchestraContext &context, PieceWords &words)
{
    const int start = token.start + (isOpen ? 0 : 1);
    const int end = token.end() - (isClosed ? 1 : 0);
    if (end > start)
        readMacroText(line.sliced(start, end - start), start, context, words);
}

/// What is left of a text in {{ }} that began above.
void readOpenText(QByteArrayView line, const CodeToken &token, bool isClosed, PieceWords &words)
{
    const int length = token.length - (isClosed ? 2 : 0);
    readScoreText(line.sliced(token.start, length), token.start, false, words);
}

} // namespace

void readOrchestraWords(QByteArrayView line, PieceState &state, OrchestraContext &context,
                        PieceWords &words)
{
    const CodeState opened = state.code;
    const CodeTokens all = readCodeLine(line, state.code);
    const bool isText = opened == CodeState::Braces || opened == CodeState::RawString;
    CodeTokens tokens;
    for (const CodeToken &token : all) {
        if (token.kind != CodeTokenKind::Comment && token.kind != CodeTokenKind::MacroText)
            tokens.append(token);
    }
    const auto isOpenBehind = [&](const CodeToken &token) {
        return token == all.last() && state.code != CodeState::Code;
    };
    if (isText && context.isScoreText && opened == CodeState::Braces && !tokens.isEmpty())
        readOpenText(line, tokens[0], !isOpenBehind(tokens[0]), words);
    StatementWords(line, 0, tokens, state, context, words).read(isText);
    for (const CodeToken &token : all) {
        if (token.kind == CodeTokenKind::MacroText)
            readMacroToken(line, token, opened == CodeState::Macro && token == all.first(),
                           !isOpenBehind(token), context, words);
    }
}

} // namespace ardiphon
