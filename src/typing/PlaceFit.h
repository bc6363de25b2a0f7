#pragma once

#include "typing/CompletionPlace.h"
#include "typing/OpcodeSignatures.h"

namespace ardiphon {

/// How well names and opcodes suit a place, a higher number for what suits it better.
class PlaceFit
{
public:
    static constexpr int Best = 10; ///< what the place asks for by itself
    static constexpr int None = -100;

    /// \a signatures are those of the opcode whose argument the place is.
    PlaceFit(const CompletionPlace &place, const QList<Signature> &signatures);

    int ofVariable(ValueType type) const;
    /// None for an opcode that cannot stand there.
    int ofOpcode(const QList<Signature> &signatures) const;
    /// Of a word of the language, as if or sr.
    int ofWord(const QString &name) const;

    bool wantsTable() const { return m_wantsTable; }
    bool wantsFile() const { return m_wantsFile; }
    /// Whether a value stands there: a name, a number, or an opcode with its arguments in brackets.
    bool isValue() const;

private:
    int ofOutputs(const QList<Signature> &signatures) const;
    int ofValue(const QList<Signature> &signatures) const;

    const CompletionPlace &m_place;
    QList<ValueType> m_wanted;
    bool m_wantsTable = false;
    bool m_wantsFile = false;
};

} // namespace ardiphon
