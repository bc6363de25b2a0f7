#include "language/editor/QuietMarks.h"

#include <Qsci/qsciscintillabase.h>

#include <QColor>

#include <algorithm>

namespace ardiphon {

namespace {

using Sci = QsciScintillaBase;

/// The colour of a kind on light and on dark backgrounds.
struct Ink
{
    Color onLight;
    Color onDark;
};

/// How a kind is drawn: an indicator of the view, beside those of the colouring.
struct Look
{
    unsigned indicator;
    unsigned shape;
    int inside; ///< how much of it covers the background, of 255
    int border;
    std::optional<Ink> ink = std::nullopt; ///< else that of the letters
};

constexpr Look Looks[QuietMarks::KindCount] = {
    {11, Sci::INDIC_ROUNDBOX, 26, 56},
    {12, Sci::INDIC_STRAIGHTBOX, 20, 110},
    {13, Sci::INDIC_SQUIGGLE, 255, 255, Ink{Color::rgb(208, 0, 0), Color::rgb(255, 100, 100)}},
    {14, Sci::INDIC_SQUIGGLE, 255, 255, Ink{Color::rgb(190, 120, 0), Color::rgb(240, 180, 60)}},
    {15, Sci::INDIC_SQUIGGLE, 255, 255, Ink{Color::rgb(120, 120, 120), Color::rgb(150, 150, 150)}},
};

constexpr qsizetype LongestMarkedLine = 1 << 14; // as far as a line is coloured as a whole

bool isBefore(const TextRange &one, const TextRange &other)
{
    return one.start != other.start ? one.start < other.start : one.end < other.end;
}

/// Sorts the ranges and joins those that touch, as the view keeps them.
std::vector<TextRange> joined(std::vector<TextRange> ranges)
{
    std::sort(ranges.begin(), ranges.end(), isBefore);
    std::vector<TextRange> result;
    for (const TextRange &range : ranges) {
        if (!result.empty() && range.start <= result.back().end)
            result.back().end = std::max(result.back().end, range.end);
        else
            result.push_back(range);
    }
    return result;
}

/// Those of \a ranges that are not in \a others; both are in their order.
std::vector<TextRange> without(const std::vector<TextRange> &ranges,
                               const std::vector<TextRange> &others)
{
    std::vector<TextRange> result;
    std::set_difference(ranges.begin(), ranges.end(), others.begin(), others.end(),
                        std::back_inserter(result), isBefore);
    return result;
}

} // namespace

QuietMarks::QuietMarks(QsciScintillaBase &view, const TextBuffer &text, const FoldedLines &folded)
    : m_view(view), m_text(text), m_folded(folded)
{
    for (const Look &look : Looks) {
        send(Sci::SCI_INDICSETSTYLE, look.indicator, look.shape);
        send(Sci::SCI_INDICSETUNDER, look.indicator, 1);
        send(Sci::SCI_INDICSETALPHA, look.indicator, look.inside);
        send(Sci::SCI_INDICSETOUTLINEALPHA, look.indicator, look.border);
    }
    setBack(Color::rgb(255, 255, 255));
}

long QuietMarks::send(unsigned message, qsizetype first, qsizetype second) const
{
    return m_view.SendScintilla(message, static_cast<unsigned long>(first),
                                static_cast<long>(second));
}

void QuietMarks::setBack(Color back)
{
    const bool isDark = QColor(back.red(), back.green(), back.blue()).lightness() < 128;
    const Color ink = isDark ? Color::rgb(255, 255, 255) : Color::rgb(0, 0, 0);
    for (const Look &look : Looks) {
        const Color own = look.ink ? (isDark ? look.ink->onDark : look.ink->onLight) : ink;
        send(Sci::SCI_INDICSETFORE, look.indicator, own.value);
    }
}

void QuietMarks::set(MarkKind kind, const QList<TextSpan> &spans, quint64 revision)
{
    m_marks[std::size_t(kind)] = {spans, revision};
    draw(kind);
}

bool QuietMarks::isDue(quint64 revision)
{
    Shown now = shownNow(revision);
    if (now == m_shown)
        return false;
    m_shown = std::move(now);
    // Another selection covers other parts of what is marked.
    for (int kind = 0; kind < KindCount; ++kind) {
        if (const Marks &marks = m_marks[kind];
            !marks.spans.isEmpty() && marks.revision == revision)
            draw(MarkKind(kind));
    }
    return true;
}

QuietMarks::Shown QuietMarks::shownNow(quint64 revision) const
{
    return {linesInView(), m_text.selection(), m_text.caret(), revision, m_view.hasFocus()};
}

bool QuietMarks::isTooLong(int line) const
{
    return m_text.lineEnd(line) - m_text.lineStart(line) > LongestMarkedLine;
}

QList<LineRun> QuietMarks::linesInView() const
{
    QList<LineRun> lines;
    const int top = int(send(Sci::SCI_GETFIRSTVISIBLELINE));
    for (const LineRun &run : m_folded.linesIn(top, top + int(send(Sci::SCI_LINESONSCREEN)))) {
        for (int line = run.first; line <= run.last; ++line) {
            if (isTooLong(line))
                continue;
            if (!lines.isEmpty() && lines.back().last == line - 1)
                lines.back().last = line;
            else
                lines.append({line, line});
        }
    }
    return lines;
}

/// Changes only what is another, so that only that is painted again.
void QuietMarks::draw(MarkKind kind)
{
    const unsigned indicator = Looks[std::size_t(kind)].indicator;
    const Ranges now = present(indicator);
    const Ranges next = wanted(m_marks[std::size_t(kind)].spans);
    send(Sci::SCI_SETINDICATORCURRENT, indicator);
    send(Sci::SCI_SETINDICATORVALUE, 1);
    for (const TextRange &range : without(now, next))
        send(Sci::SCI_INDICATORCLEARRANGE, range.start, range.end - range.start);
    for (const TextRange &range : without(next, now))
        send(Sci::SCI_INDICATORFILLRANGE, range.start, range.end - range.start);
}

QuietMarks::Ranges QuietMarks::wanted(const QList<TextSpan> &spans) const
{
    Ranges ranges;
    const TextRange selected = m_text.selection();
    const auto add = [&ranges](qsizetype start, qsizetype end) {
        if (start < end)
            ranges.push_back({start, end});
    };
    for (const auto &[line, column, length] : spans) {
        if (!m_text.hasLine(line) || isTooLong(line) || column < 0 || length < 1)
            continue;
        const qsizetype start = m_text.offsetOf({line, column});
        const int longest = std::min(length, int(LongestMarkedLine));
        const qsizetype end =
            column < LongestMarkedLine ? m_text.offsetOf({line, column + longest}) : start;
        add(start, std::min(end, std::max(selected.start, start)));
        add(std::max(start, std::min(selected.end, end)), end);
    }
    return joined(std::move(ranges));
}

QuietMarks::Ranges QuietMarks::present(unsigned indicator) const
{
    Ranges ranges;
    for (qsizetype at = 0; at < m_text.size();) {
        const qsizetype end = send(Sci::SCI_INDICATOREND, indicator, at);
        if (end <= at)
            break;
        if (send(Sci::SCI_INDICATORVALUEAT, indicator, at) != 0)
            ranges.push_back({at, end});
        at = end;
    }
    return ranges;
}

} // namespace ardiphon
