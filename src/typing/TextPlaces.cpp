#include "typing/TextPlaces.h"

#include <algorithm>
#include <climits>

namespace ardiphon {

void TextPlaces::begin(const TakenText &taken, int line, int column, const LineText &lineText)
{
    m_places.clear();
    m_current = 0;
    for (const TakenPlace &place : taken.places) {
        const QString before = taken.text.left(place.offset);
        const int lines = int(before.count(u'\n'));
        const int start =
            lines == 0 ? column + place.offset : place.offset - int(before.lastIndexOf(u'\n')) - 1;
        m_places.append({{line + lines, start, place.length}, place.number});
    }
    // In their turns; that with number 0 is the last.
    std::stable_sort(m_places.begin(), m_places.end(), [](const Place &a, const Place &b) {
        return (a.number == 0 ? INT_MAX : a.number) < (b.number == 0 ? INT_MAX : b.number);
    });
    m_firstLine = line;
    m_lines.clear();
    for (int at = 0; at <= taken.text.count(u'\n'); ++at)
        m_lines.append(lineText(line + at));
}

void TextPlaces::follow(const TextChange &change, const LineText &lineText)
{
    const int last = m_firstLine + int(m_lines.size()) - 1;
    const int changedLast = change.line + change.linesRemoved - 1;
    const int more = change.linesAdded - change.linesRemoved;
    if (!isAlive() || change.line > last)
        return;
    if (changedLast < m_firstLine) {
        m_firstLine += more;
        for (Place &place : m_places)
            place.span.line += more;
        return;
    }
    if (more != 0 || change.linesRemoved == 0) {
        end();
        return;
    }
    for (int line = std::max(change.line, m_firstLine); line <= std::min(changedLast, last);
         ++line) {
        QString &before = m_lines[line - m_firstLine];
        const QString after = lineText(line);
        const auto [first, firstAfter] =
            std::mismatch(before.cbegin(), before.cend(), after.cbegin(), after.cend());
        const int from = int(first - before.cbegin());
        const int most = int(std::min(before.size(), after.size())) - from;
        int same = 0;
        while (same < most && before[before.size() - 1 - same] == after[after.size() - 1 - same])
            ++same;
        followLine({line, from, int(before.size()) - same, int(after.size() - before.size())});
        before = after;
    }
}

void TextPlaces::followLine(const Edit &edit)
{
    for (qsizetype i = 0; i < m_places.size(); ++i) {
        if (!follow(m_places[i], i == m_current, edit)) {
            end();
            return;
        }
    }
}

/// False where the edit goes over an end of the place.
bool TextPlaces::follow(Place &place, bool isCurrent, const Edit &edit)
{
    PlaceSpan &span = place.span;
    const int end = span.column + span.length;
    if (edit.line != span.line)
        return true;
    if (isCurrent && edit.from >= span.column && edit.removedTo <= end) {
        span.length += edit.more;
        return true;
    }
    if (edit.removedTo <= span.column) {
        span.column += edit.more;
        return true;
    }
    if (edit.from >= end)
        return true;
    if (edit.from < span.column || edit.removedTo > end)
        return false;
    span.length += edit.more;
    return true;
}

std::optional<PlaceSpan> TextPlaces::current() const
{
    return isAlive() ? std::optional(m_places[m_current].span) : std::nullopt;
}

/// The first place behind those of the present one's number.
std::optional<PlaceSpan> TextPlaces::goNext()
{
    if (!isAlive())
        return std::nullopt;
    int next = m_current + 1;
    while (next < m_places.size() && m_places[next].number == m_places[m_current].number)
        ++next;
    if (next >= m_places.size()) {
        end();
        return std::nullopt;
    }
    m_current = next;
    const PlaceSpan span = m_places[next].span;
    if (next == m_places.size() - 1 && m_places[next].number == 0)
        end(); // one goes on there
    return span;
}

std::optional<PlaceSpan> TextPlaces::goBack()
{
    if (!isAlive() || m_current == 0)
        return std::nullopt;
    --m_current;
    while (m_current > 0 && m_places[m_current - 1].number == m_places[m_current].number)
        --m_current;
    return m_places[m_current].span;
}

bool TextPlaces::contains(int line, int column) const
{
    return std::any_of(m_places.begin(), m_places.end(),
                       [=](const Place &place) { return place.span.contains(line, column); });
}

QList<PlaceSpan> TextPlaces::partners() const
{
    QList<PlaceSpan> found;
    for (qsizetype i = 0; i < m_places.size(); ++i) {
        if (i != m_current && m_places[i].number == m_places[m_current].number)
            found.append(m_places[i].span);
    }
    return found;
}

} // namespace ardiphon
