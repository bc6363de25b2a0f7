#include "piece/ScoreMacros.h"

namespace ardiphon {

namespace {

constexpr qsizetype MostMacros = 100'000;
constexpr qsizetype MostMacroBytes = 32'000'000;

/// To look for, without a copy.
QByteArray keyOf(QByteArrayView name) { return QByteArray::fromRawData(name.data(), name.size()); }

} // namespace

bool ScoreMacros::define(const QByteArray &name, const ScoreMacro &macro)
{
    std::vector<ScoreMacro> &macros = m_macros[name];
    if (!macros.empty() && macros.back().place == macro.place) {
        m_bytes += macro.text.size() - macros.back().text.size();
        macros.back() = macro;
        return m_bytes <= MostMacroBytes;
    }
    if (m_count >= MostMacros || m_bytes + macro.text.size() > MostMacroBytes)
        return false;
    ++m_count;
    m_bytes += macro.text.size();
    macros.push_back(macro);
    return true;
}

void ScoreMacros::undefine(QByteArrayView name)
{
    const auto macros = m_macros.find(keyOf(name));
    if (macros == m_macros.end() || macros->empty())
        return;
    --m_count;
    m_bytes -= macros->back().text.size();
    macros->pop_back();
    if (macros->empty())
        m_macros.erase(macros);
}

void ScoreMacros::setText(const QByteArray &name, const QByteArray &text)
{
    const auto macros = m_macros.find(name);
    if (macros == m_macros.end() || macros->empty())
        return;
    m_bytes += text.size() - macros->back().text.size();
    macros->back().text = text;
}

const ScoreMacro *ScoreMacros::find(QByteArrayView name) const
{
    const auto macros = m_macros.constFind(keyOf(name));
    return macros == m_macros.cend() || macros->empty() ? nullptr : &macros->back();
}

void ScoreMacros::clear() { *this = ScoreMacros(); }

} // namespace ardiphon
