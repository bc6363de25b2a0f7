#include "piece/PieceArguments.h"

#include <QHash>

namespace ardiphon {

namespace {

constexpr quint32 First = 1;
constexpr quint32 Second = 2;
constexpr quint32 Third = 4;
constexpr quint32 Fourth = 8;
constexpr quint32 All = ~quint32(0);

constexpr auto Label = ArgumentMeaning::Label;
constexpr auto Player = ArgumentMeaning::Instrument;
constexpr auto Channel = ArgumentMeaning::Channel;

constexpr ArgumentRule Rules[] = {
    {"schedule", Player, First},
    {"schedulek", Player, First},
    {"schedwhen", Player, Second},
    {"schedkwhen", Player, Fourth},
    {"schedkwhennamed", Player, Fourth, true, false},
    {"event", ArgumentMeaning::Event, Second},
    {"event_i", ArgumentMeaning::Event, Second},
    {"turnoff", Player, First},
    {"turnoff2", Player, First},
    {"turnoff2_i", Player, First},
    {"turnoff3", Player, First},
    {"turnon", Player, First},
    {"nstance", Player, First},
    {"nstrnum", Player, First, true, false},
    {"nstrstr", Player, First, false, true},
    {"subinstr", Player, First},
    {"subinstrinit", Player, First},
    {"alwayson", Player, First},
    {"massign", Player, Second},
    {"pgmassign", Player, Second},
    {"active", Player, First},
    {"maxalloc", Player, First},
    {"prealloc", Player, First},
    {"cpuprc", Player, First},
    {"mute", Player, First},
    {"connect", Player, First | Third},
    {"insremot", Player, All & ~(First | Second), false, true},
    {"midremot", Player, All & ~(First | Second), false, true},
    {"insglobal", Player, All & ~First, false, true},
    {"midglobal", Player, All & ~First, false, true},

    {"scoreline", ArgumentMeaning::ScoreText, First},
    {"scoreline_i", ArgumentMeaning::ScoreText, First},
    {"readscore", ArgumentMeaning::ScoreText, First},

    {"goto", Label, First},
    {"igoto", Label, First},
    {"kgoto", Label, First},
    {"tigoto", Label, First},
    {"rigoto", Label, First},
    {"reinit", Label, First},
    {"cggoto", Label, Second},
    {"cigoto", Label, Second},
    {"ckgoto", Label, Second},
    {"cngoto", Label, Second},
    {"cnkgoto", Label, Second},
    {"timout", Label, Third},
    {"loop_lt", Label, Fourth},
    {"loop_le", Label, Fourth},
    {"loop_gt", Label, Fourth},
    {"loop_ge", Label, Fourth},

    {"chn_k", Channel, First},
    {"chn_a", Channel, First},
    {"chn_S", Channel, First},
    {"chnexport", Channel, First},
    {"chnparams", Channel, First},
    {"chnget", Channel, First},
    {"chngeti", Channel, First},
    {"chngetk", Channel, First},
    {"chngeta", Channel, First},
    {"chngets", Channel, First},
    {"chngetks", Channel, First},
    {"chnset", Channel, Second},
    {"chnseti", Channel, Second},
    {"chnsetk", Channel, Second},
    {"chnseta", Channel, Second},
    {"chnsets", Channel, Second},
    {"chnsetks", Channel, Second},
    {"chnmix", Channel, Second},
    {"chnclear", Channel, All},
    {"invalue", Channel, First},
    {"outvalue", Channel, First},
};

QHash<QByteArrayView, const ArgumentRule *> rulesByOpcode()
{
    QHash<QByteArrayView, const ArgumentRule *> rules;
    for (const ArgumentRule &rule : Rules)
        rules.insert(rule.opcode, &rule);
    return rules;
}

} // namespace

const ArgumentRule *argumentRule(QByteArrayView opcode)
{
    static const QHash<QByteArrayView, const ArgumentRule *> rules = rulesByOpcode();
    return rules.value(opcode);
}

void OpenCalls::openBracket(bool isRound)
{
    if (isRound && !m_calls.isEmpty()) {
        Call &call = m_calls.last();
        if (call.rule && !call.hasBracket && call.argument == 1 && call.tokens == 0) {
            call.hasBracket = true;
            return;
        }
    }
    addToken();
    m_calls.append({nullptr, 1, 0, true});
}

void OpenCalls::closeBracket()
{
    while (!m_calls.isEmpty() && !m_calls.last().hasBracket)
        m_calls.removeLast();
    if (!m_calls.isEmpty())
        m_calls.removeLast();
}

void OpenCalls::nextArgument()
{
    if (m_calls.isEmpty())
        return;
    ++m_calls.last().argument;
    m_calls.last().tokens = 0;
}

void OpenCalls::addToken()
{
    if (!m_calls.isEmpty())
        ++m_calls.last().tokens;
}

void OpenCalls::setNote()
{
    if (!m_calls.isEmpty() && m_calls.last().argument == 1 && m_calls.last().tokens == 0)
        m_calls.last().isNote = true;
}

std::optional<ArgumentMeaning> OpenCalls::meaning(int tokens) const
{
    if (m_calls.isEmpty() || !m_calls.last().rule)
        return std::nullopt;
    const Call &call = m_calls.last();
    if (call.tokens != tokens || !call.rule->isFor(call.argument))
        return std::nullopt;
    if (call.rule->meaning != ArgumentMeaning::Event)
        return call.rule->meaning;
    return call.isNote ? std::optional(ArgumentMeaning::Instrument) : std::nullopt;
}

} // namespace ardiphon
