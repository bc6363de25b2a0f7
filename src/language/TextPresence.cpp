#include "language/TextPresence.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr qsizetype KnownAtMost = 100; // texts

std::optional<qsizetype> findIn(QByteArrayView part, qsizetype partStart, QByteArrayView wanted)
{
    const qsizetype at = part.indexOf(wanted);
    return at < 0 ? std::nullopt : std::optional(partStart + at);
}

} // namespace

void TextPresence::aboutToChange(qsizetype at, qsizetype removed)
{
    const qsizetype behind = m_text.size() - at - removed;
    for (Known &known : m_known) {
        known.keptStart = std::min(known.keptStart, at);
        known.keptEnd = std::min(known.keptEnd, behind);
    }
}

bool TextPresence::contains(const QByteArray &wanted)
{
    if (wanted.isEmpty())
        return false;
    const qsizetype size = m_text.size();
    const auto known = m_known.constFind(wanted);
    const auto place =
        known == m_known.constEnd() ? find(wanted, 0, size) : placeNow(*known, wanted);
    if (m_known.size() >= KnownAtMost)
        m_known.clear();
    m_known.insert(wanted, {place, size, size, size});
    return place.has_value();
}

std::optional<qsizetype> TextPresence::placeNow(const Known &known, const QByteArray &wanted) const
{
    if (const auto place = keptPlace(known, wanted.size()))
        return place;
    const qsizetype size = m_text.size();
    const qsizetype reach = wanted.size() - 1; // it may be partly in what was kept
    const auto place = find(wanted, std::max<qsizetype>(known.keptStart - reach, 0),
                            std::min(size - known.keptEnd + reach, size));
    return place || !known.place ? place : find(wanted, 0, size);
}

std::optional<qsizetype> TextPresence::keptPlace(const Known &known, qsizetype length) const
{
    if (known.place && *known.place + length <= known.keptStart)
        return known.place;
    if (known.place && known.size - *known.place <= known.keptEnd)
        return *known.place + m_text.size() - known.size;
    return std::nullopt;
}

// Looks before the gap, then in a copy across it, then after it.
std::optional<qsizetype> TextPresence::find(const QByteArray &wanted, qsizetype from,
                                            qsizetype to) const
{
    if (to - from < wanted.size())
        return std::nullopt;
    const qsizetype gap = std::clamp(m_text.gap(), from, to);
    const qsizetype reach = wanted.size() - 1;
    if (const auto place = findIn(m_text.bytes(from, gap), from, wanted))
        return place;
    const qsizetype around = std::max(gap - reach, from);
    const QByteArray across = m_text.bytes(around, gap).toByteArray() +
                              m_text.bytes(gap, std::min(gap + reach, to)).toByteArray();
    if (const auto place = findIn(across, around, wanted))
        return place;
    return findIn(m_text.bytes(gap, to), gap, wanted);
}

} // namespace ardiphon
