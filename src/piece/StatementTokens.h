#pragma once

#include "piece/CodeTokens.h"
#include "piece/OrchestraWords.h"

namespace ardiphon {

/// The tokens of a statement of the orchestra, by number. A number that is out of range is none.
class StatementTokens
{
public:
    /// \a text and \a tokens outlive it.
    StatementTokens(QByteArrayView text, const CodeTokens &tokens) : m_text(text), m_tokens(tokens)
    {
    }

    bool has(qsizetype at) const { return at >= 0 && at < m_tokens.size(); }
    QByteArrayView word(qsizetype at) const
    {
        return has(at) ? m_tokens[at].in(m_text) : QByteArrayView();
    }
    bool isKind(qsizetype at, CodeTokenKind kind) const
    {
        return has(at) && m_tokens[at].kind == kind;
    }
    bool isName(qsizetype at) const { return isKind(at, CodeTokenKind::Name); }
    bool isSymbol(qsizetype at, QByteArrayView symbol) const
    {
        return isKind(at, CodeTokenKind::Symbol) && word(at) == symbol;
    }
    /// Whether nothing is between that token and the next.
    bool touchesNext(qsizetype at) const
    {
        return has(at) && has(at + 1) && m_tokens[at].end() == m_tokens[at + 1].start;
    }
    bool goesOn() const
    {
        const qsizetype last = m_tokens.size() - 1;
        return isSymbol(last, "\\") || isSymbol(last, ",");
    }

    /// Whether a label is first: a colon at once behind it, and a blank or nothing behind that.
    bool isLabel() const
    {
        const bool isWord = isName(0) || isKind(0, CodeTokenKind::Number);
        return isWord && isSymbol(1, ":") && touchesNext(0) && !touchesNext(1);
    }

    /// The opcode that the statement from \a first on calls, where its place tells it; else -1.
    qsizetype calledOpcode(qsizetype first) const
    {
        if (blockWord(word(first))) // a condition follows
            return -1;
        qsizetype at = first;
        int outputs = 0;
        for (; isName(at); ++at) {
            const qsizetype output = at;
            at = behindVariable(at);
            ++outputs;
            if (!isSymbol(at, ",")) {
                if (outputs == 1 && isOperand(at) && !isName(at))
                    return output;
                break;
            }
        }
        if (outputs == 0 || !isName(at))
            return -1;
        if (outputs == 1 && isSymbol(at + 1, ","))
            return first;
        return outputs > 1 || isOperand(at + 1) ? at : -1;
    }

    /// Whether an argument can begin there that is no expression in brackets.
    bool isOperand(qsizetype at) const
    {
        return isName(at) || isKind(at, CodeTokenKind::Number) || isKind(at, CodeTokenKind::Text) ||
               isKind(at, CodeTokenKind::MacroUse);
    }

    /// The token behind a variable with its type and its brackets.
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

    /// Whether nothing of the same argument follows.
    bool endsArgument(qsizetype at) const
    {
        return !has(at + 1) || isSymbol(at + 1, ",") || isSymbol(at + 1, ")") ||
               isSymbol(at + 1, "\\");
    }

    /// A macro beside it gives the rest of the name.
    bool isPartOfAName(qsizetype at) const
    {
        return (isKind(at + 1, CodeTokenKind::MacroUse) && touchesNext(at)) ||
               (isKind(at - 1, CodeTokenKind::MacroUse) && touchesNext(at - 1));
    }
    /// As k in x:k and in chnget:k("a").
    bool isType(qsizetype at) const
    {
        return isSymbol(at - 1, ":") && touchesNext(at - 1) && touchesNext(at - 2) &&
               isName(at - 2);
    }
    /// Of a value of a type of the piece.
    bool isMember(qsizetype at) const { return isSymbol(at - 1, ".") && touchesNext(at - 1); }

protected:
    QByteArrayView m_text;
    const CodeTokens &m_tokens;
};

} // namespace ardiphon
