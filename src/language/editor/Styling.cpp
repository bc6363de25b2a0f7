#include "language/editor/Styling.h"

#include "language/Utf8.h"
#include "language/editor/FontFamily.h"

#include <Qsci/qsciscintillabase.h>

#include <algorithm>
#include <cmath>

namespace ardiphon {

namespace {

using Sci = QsciScintillaBase;

// Styles of the view: text that is no token, comments, then one for each pair of colours, around
// the library's own ones.
constexpr unsigned PlainStyle = 0;
constexpr unsigned CommentStyle = 1;
constexpr unsigned RestStyles[] = {2, 3};
constexpr unsigned FirstTokenStyle = 4;

constexpr unsigned StrikeIndicator = 8;
constexpr unsigned FarForeIndicator = 9;
constexpr unsigned FarBackIndicator = 10;
constexpr long ColorIsTheValue = 1; // SC_INDICFLAG_VALUEFORE
constexpr long Opaque = 255;

// A line is styled up to here. With styles behind it the whole line would be measured again each
// time that another part comes into view; so the visible part is coloured by indicators, which do
// not change the measures.
constexpr qsizetype ColoredLength = 1 << 14;
constexpr qsizetype LongestToken = 1 << 10; // that has a meaning

// The library remembers the widths of so many short pieces of text.
constexpr int KnownWidths = 1 << 14;

QColor toQColor(Color color) { return QColor(color.red(), color.green(), color.blue()); }

// The library measures a whole line before it draws any of it, and takes half a minute for one of
// 5 MB: pieces of one style are measured again each time, unless they are short and were seen
// before. So the style changes here at every second character, between two that look the same.
QByteArray stylesOfRest(QByteArrayView text)
{
    QByteArray styles(text.size(), char(RestStyles[0]));
    unsigned piece = 0;
    qsizetype pieceStart = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (at >= pieceStart + 2 && static_cast<unsigned char>(text[at]) < 0x80) {
            piece = 1 - piece;
            pieceStart = at;
        }
        styles[at] = char(RestStyles[piece]);
    }
    return styles;
}

bool isRestStyle(long style)
{
    return style == long(RestStyles[0]) || style == long(RestStyles[1]);
}

} // namespace

Styling::Styling(QsciScintillaBase &view, TextBuffer &text, const FoldedLines &folded)
    : m_view(view),
      m_text(text),
      m_folded(folded),
      m_states(text),
      m_ranges(text),
      m_font(QStringLiteral("Courier New"), 10)
{
    m_view.SendScintilla(Sci::SCI_SETPOSITIONCACHE, KnownWidths);
    m_view.SendScintilla(Sci::SCI_INDICSETSTYLE, StrikeIndicator, long(Sci::INDIC_STRIKE));
    m_view.SendScintilla(Sci::SCI_INDICSETSTYLE, FarForeIndicator, long(Sci::INDIC_TEXTFORE));
    m_view.SendScintilla(Sci::SCI_INDICSETFLAGS, FarForeIndicator, ColorIsTheValue);
    m_view.SendScintilla(Sci::SCI_INDICSETSTYLE, FarBackIndicator, long(Sci::INDIC_FULLBOX));
    m_view.SendScintilla(Sci::SCI_INDICSETFLAGS, FarBackIndicator, ColorIsTheValue);
    m_view.SendScintilla(Sci::SCI_INDICSETALPHA, FarBackIndicator, Opaque);
    m_view.SendScintilla(Sci::SCI_INDICSETOUTLINEALPHA, FarBackIndicator, Opaque);
    m_view.SendScintilla(Sci::SCI_INDICSETUNDER, FarBackIndicator, 1L);
    applyFont();
}

void Styling::setTokenColors(LEditOCX::TokenColorsCallback callback)
{
    m_tokenColors = std::move(callback);
    redraw();
}

void Styling::setLineColors(LineColorsCallback callback)
{
    m_ranges.setColors(std::move(callback));
    redraw();
}

void Styling::setBack(Color color)
{
    m_back = color;
    applyBaseColors();
}

void Styling::setCommentFore(Color color)
{
    m_commentFore = color;
    applyBaseColors();
}

void Styling::setSelectionBack(Color color)
{
    m_view.SendScintilla(Sci::SCI_SETSELBACK, 1UL, toQColor(color));
    m_view.SendScintilla(Sci::SCI_SETADDITIONALSELBACK, toQColor(color));
}

void Styling::setSelectionFore(Color color)
{
    m_view.SendScintilla(Sci::SCI_SETSELFORE, 1UL, toQColor(color));
    m_view.SendScintilla(Sci::SCI_SETADDITIONALSELFORE, toQColor(color));
}

void Styling::setFont(const QFont &font)
{
    m_font = font;
    // Lines are struck through when they are drawn; the marks of the old font are removed here.
    m_view.SendScintilla(Sci::SCI_SETINDICATORCURRENT, ulong(StrikeIndicator));
    m_view.SendScintilla(Sci::SCI_INDICATORCLEARRANGE, 0UL, long(m_text.size()));
    applyFont();
}

void Styling::applyFont()
{
    constexpr unsigned long style = Sci::STYLE_DEFAULT;
    const QByteArray family = familyToDraw(m_font.family()).toUtf8();
    m_view.SendScintilla(Sci::SCI_STYLESETFONT, style, family.constData());
    m_view.SendScintilla(Sci::SCI_STYLESETSIZEFRACTIONAL, style,
                         std::lround(m_font.pointSizeF() * int(Sci::SC_FONT_SIZE_MULTIPLIER)));
    m_view.SendScintilla(Sci::SCI_STYLESETBOLD, style, long(m_font.bold()));
    m_view.SendScintilla(Sci::SCI_STYLESETITALIC, style, long(m_font.italic()));
    m_view.SendScintilla(Sci::SCI_STYLESETUNDERLINE, style, long(m_font.underline()));
    applyBaseColors();
}

// Resets all styles; those of the tokens are made again when they are drawn.
void Styling::applyBaseColors()
{
    const QColor back = toQColor(m_back);
    const QColor ink = back.lightness() < 128 ? Qt::white : Qt::black;
    m_view.SendScintilla(Sci::SCI_STYLESETBACK, ulong(Sci::STYLE_DEFAULT), back);
    m_view.SendScintilla(Sci::SCI_STYLESETFORE, ulong(Sci::STYLE_DEFAULT), ink);
    m_view.SendScintilla(Sci::SCI_STYLECLEARALL);
    m_view.SendScintilla(Sci::SCI_STYLESETFORE, ulong(CommentStyle), toQColor(m_commentFore));
    m_view.SendScintilla(Sci::SCI_SETCARETFORE, ink);
    m_view.SendScintilla(Sci::SCI_SETADDITIONALCARETFORE, ink);
    m_styles.clear();
    m_nextStyle = FirstTokenStyle;
    redraw();
}

void Styling::redraw() { m_view.viewport()->update(); }

unsigned Styling::styleFor(Color back, Color fore)
{
    const quint64 pair = quint64(back.value) << 32 | fore.value;
    if (const auto known = m_styles.constFind(pair); known != m_styles.constEnd())
        return *known;
    if (m_nextStyle == Sci::STYLE_DEFAULT)
        m_nextStyle = Sci::STYLE_LASTPREDEFINED + 1;
    if (m_nextStyle > Sci::STYLE_MAX) {
        m_styles.clear();
        m_nextStyle = FirstTokenStyle;
        redraw();
    }
    const unsigned style = m_nextStyle++;
    m_view.SendScintilla(Sci::SCI_STYLESETBACK, ulong(style), toQColor(back));
    m_view.SendScintilla(Sci::SCI_STYLESETFORE, ulong(style), toQColor(fore));
    m_styles.insert(pair, style);
    return style;
}

unsigned Styling::styleOfToken(const Token &token, QByteArrayView line, const LineColors &own)
{
    TokenColors colors{m_back, m_commentFore};
    if (!token.comment) {
        if (!m_tokenColors)
            return PlainStyle;
        colors = m_tokenColors(token.kind, stringOf(line.sliced(token.start, token.length)));
    } else if (!own.fore) {
        return CommentStyle;
    }
    return styleFor(own.back.value_or(colors.back), own.fore.value_or(colors.fore));
}

TokenColors Styling::colorsOf(const ColoredRange &range, const LineColors &own) const
{
    const TokenColors colors = range.colors.value_or(TokenColors{m_back, m_commentFore});
    return {own.back.value_or(colors.back), own.fore.value_or(colors.fore)};
}

unsigned Styling::styleOfRange(const ColoredRange &range, const LineColors &own)
{
    const TokenColors colors = colorsOf(range, own);
    return !range.colors && !own.fore ? CommentStyle : styleFor(colors.back, colors.fore);
}

void Styling::colorLine(int line, LineState state, const LineColors &own)
{
    const qsizetype start = m_text.lineStart(line);
    const qsizetype end = m_text.lineEnd(line);
    const qsizetype coloredEnd = std::min(end, start + ColoredLength);
    const QByteArray text = m_text.bytes(start, coloredEnd).toByteArray();
    QByteArray styles(text.size(), char(PlainStyle));
    if (m_ranges.areOn()) {
        for (const ColoredRange &range : m_ranges.read(line, ColoredLength)) {
            const unsigned style = styleOfRange(range, own);
            const qsizetype from = std::min<qsizetype>(range.start, styles.size());
            std::fill_n(styles.begin() + from,
                        std::min<qsizetype>(range.length, styles.size() - from), char(style));
        }
    } else {
        for (const Token &token : tokenizeLine(text, state)) {
            const unsigned style = styleOfToken(token, text, own);
            std::fill_n(styles.begin() + token.start, token.length, char(style));
        }
    }
    applyStyles(start, styles);
    m_hasLongLine |= coloredEnd < end;
    if (m_hasLongLine) {
        mark(FarForeIndicator, start, coloredEnd, std::nullopt);
        mark(FarBackIndicator, start, coloredEnd, std::nullopt);
    }
    if (coloredEnd < end && !isRestStyle(m_view.SendScintilla(Sci::SCI_GETSTYLEAT, long(end - 1))))
        applyStyles(coloredEnd, stylesOfRest(m_text.bytes(coloredEnd, end)));
}

// What the view shows of a line, from its first to its last position.
TextRange Styling::columnsInView(int line) const
{
    const long top = m_view.SendScintilla(Sci::SCI_GETFIRSTVISIBLELINE);
    const long y = (m_folded.rowOf(line) - top) * m_view.SendScintilla(Sci::SCI_TEXTHEIGHT);
    const long width = m_view.viewport()->width();
    return {m_view.SendScintilla(Sci::SCI_POSITIONFROMPOINT, 0UL, y),
            m_view.SendScintilla(Sci::SCI_POSITIONFROMPOINT, ulong(width), y)};
}

// Of a very long line, what is behind \a first, from the line's start; perhaps what is before it or
// behind \a last as well.
ColoredRanges Styling::farRanges(int line, qsizetype first, qsizetype last)
{
    if (m_ranges.areOn())
        return m_ranges.known(line);
    const LineStates::Checkpoint known = m_states.before(first);
    const QByteArray text = m_text.bytes(known.offset, last).toByteArray();
    const qsizetype before = known.offset - m_text.lineStart(line);
    LineState state = known.state;
    ColoredRanges ranges;
    for (const Token &token : tokenizeLine(text, state)) {
        if (known.offset + token.end() <= first || (!token.comment && !m_tokenColors))
            continue;
        ColoredRange range{int(before + token.start), int(token.length), std::nullopt};
        if (!token.comment)
            range.colors =
                m_tokenColors(token.kind, stringOf(text.sliced(token.start, token.length)));
        ranges.append(range);
    }
    return ranges;
}

void Styling::colorFarInView(int line, const LineColors &own)
{
    const qsizetype lineStart = m_text.lineStart(line);
    const qsizetype styled = lineStart + ColoredLength;
    const qsizetype end = m_text.lineEnd(line);
    const TextRange seen = columnsInView(line);
    const qsizetype first = std::clamp(seen.start - LongestToken, styled, end);
    const qsizetype last = std::clamp(seen.end + LongestToken, styled, end);
    restyleFar(first, last);
    qsizetype done = styled;
    for (const ColoredRange &range : farRanges(line, first, last)) {
        const qsizetype start = std::max(lineStart + range.start, first);
        const qsizetype behind = std::min(lineStart + range.start + range.length, last);
        if (start >= behind)
            continue;
        const TokenColors colors = colorsOf(range, own);
        mark(FarForeIndicator, done, start, std::nullopt);
        markBack(done, start, std::nullopt);
        mark(FarForeIndicator, start, behind, colors.fore);
        markBack(start, behind, colors.back);
        done = behind;
    }
    mark(FarForeIndicator, done, end, std::nullopt);
    markBack(done, end, std::nullopt);
}

// Text inserted before them may have moved styled tokens into this range; it gets the styles of a
// rest again.
void Styling::restyleFar(qsizetype first, qsizetype last)
{
    for (qsizetype at = first; at < last; ++at) {
        const long style = m_view.SendScintilla(Sci::SCI_GETSTYLEAT, long(at));
        if (style != long(PlainStyle) && !isRestStyle(style)) {
            applyStyles(first, stylesOfRest(m_text.bytes(first, last)));
            return;
        }
    }
}

// Without a \a color the one that is there is removed.
void Styling::mark(unsigned indicator, qsizetype start, qsizetype end, std::optional<Color> color)
{
    if (start >= end)
        return;
    m_view.SendScintilla(Sci::SCI_SETINDICATORCURRENT, ulong(indicator));
    if (color) {
        m_view.SendScintilla(Sci::SCI_SETINDICATORVALUE,
                             ulong(color->value) | ulong(Sci::SC_INDICVALUEBIT));
        m_view.SendScintilla(Sci::SCI_INDICATORFILLRANGE, ulong(start), long(end - start));
    } else {
        m_view.SendScintilla(Sci::SCI_INDICATORCLEARRANGE, ulong(start), long(end - start));
    }
}

// Only where it is not the view's own background, and never over the selection.
void Styling::markBack(qsizetype start, qsizetype end, std::optional<Color> color)
{
    if (color == m_back)
        color.reset();
    const TextRange selected = color ? m_text.selection() : TextRange{end, end};
    const qsizetype from = std::clamp(selected.start, start, end);
    const qsizetype to = std::clamp(selected.end, start, end);
    mark(FarBackIndicator, start, from, color);
    mark(FarBackIndicator, from, to, std::nullopt);
    mark(FarBackIndicator, to, end, color);
}

void Styling::applyStyles(qsizetype start, const QByteArray &styles)
{
    m_view.SendScintilla(Sci::SCI_STARTSTYLING, ulong(start));
    m_view.SendScintilla(Sci::SCI_SETSTYLINGEX, uintptr_t(styles.size()), styles.constData());
    if (m_font.strikeOut()) {
        m_view.SendScintilla(Sci::SCI_SETINDICATORCURRENT, ulong(StrikeIndicator));
        m_view.SendScintilla(Sci::SCI_INDICATORFILLRANGE, ulong(start), long(styles.size()));
    }
}

void Styling::prepareLongLines()
{
    int line = 0;
    for (qsizetype at = 0; at + ColoredLength <= m_text.size(); at += ColoredLength) {
        if (m_text.lineOf(at) == line || m_text.lineEnd(m_text.lineOf(at)) < at + ColoredLength)
            continue;
        line = m_text.lineOf(at);
        const LineState state = stateAt(line);
        const long mark = m_view.SendScintilla(Sci::SCI_GETENDSTYLED);
        colorLine(line, state, {});
        m_view.SendScintilla(Sci::SCI_STARTSTYLING, ulong(mark));
    }
}

void Styling::colorFarIn(const std::vector<LineRun> &runs,
                         const std::function<LineColors(int line)> &lineColors)
{
    for (const LineRun &run : runs) {
        for (int line = run.first; line <= run.last; ++line)
            if (m_text.lineEnd(line) - m_text.lineStart(line) > ColoredLength)
                colorFarInView(line, lineColors(line));
    }
}

void Styling::prepare(int first, int last, const std::function<LineColors(int line)> &lineColors)
{
    const qsizetype kept = m_view.SendScintilla(Sci::SCI_GETENDSTYLED);
    if (kept < m_readTo) {
        // A change may open or close a comment over lines that are not about to be drawn.
        const int top = int(m_view.SendScintilla(Sci::SCI_GETFIRSTVISIBLELINE));
        first = std::min(first, top);
        last = std::max(last, top + int(m_view.SendScintilla(Sci::SCI_LINESONSCREEN)));
    }
    const std::vector<LineRun> runs = m_folded.linesIn(first, last);
    if (runs.empty())
        return;
    m_ranges.begin(runs.front().first);
    LineState state = stateAt(runs.front().first);
    for (const LineRun &run : runs) {
        if (run.first != runs.front().first)
            state = m_states.at(run.first);
        for (int line = run.first; line <= run.last; ++line) {
            colorLine(line, state, lineColors(line));
            state = stateBehind(m_text.bytes(m_text.lineStart(line), m_text.lineStart(line + 1)),
                                state);
        }
    }
    if (m_hasLongLine)
        colorFarIn(runs, lineColors);
    m_ranges.end();
    last = runs.back().last;
    m_readTo = std::max(m_text.lineEnd(last), std::min(kept, m_readTo));
    m_view.SendScintilla(Sci::SCI_STARTSTYLING, ulong(m_readTo));
}

LineState Styling::stateAt(int line)
{
    const qsizetype kept = m_view.SendScintilla(Sci::SCI_GETENDSTYLED);
    const LineState state = m_states.at(line);
    // Everything before the line has been read, so a mark there still shows every change of it.
    const qsizetype start = m_text.lineStart(line);
    if (kept < start) {
        if (kept < m_readTo) // and that change is still to be seen by prepare()
            m_readTo = std::max(m_readTo, start + 1);
        m_view.SendScintilla(Sci::SCI_STARTSTYLING, ulong(start));
    }
    return state;
}

} // namespace ardiphon
