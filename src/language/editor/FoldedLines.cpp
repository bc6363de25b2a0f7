#include "language/editor/FoldedLines.h"

#include "platform/Color.h"

#include <Qsci/qsciscintillabase.h>

#include <QPainter>

#include <algorithm>

namespace ardiphon {

namespace {

using Sci = QsciScintillaBase;

/// The commands that go along the text, to the next or the last character or word.
bool isStep(unsigned command)
{
    static constexpr unsigned steps[] = {
        Sci::SCI_CHARLEFT,  Sci::SCI_CHARLEFTEXTEND,  Sci::SCI_WORDLEFT,  Sci::SCI_WORDLEFTEXTEND,
        Sci::SCI_CHARRIGHT, Sci::SCI_CHARRIGHTEXTEND, Sci::SCI_WORDRIGHT, Sci::SCI_WORDRIGHTEXTEND,
    };
    return std::find(std::begin(steps), std::end(steps), command) != std::end(steps);
}

/// The commands that go down on the screen; from the last row the view goes to the text's end.
bool isDown(unsigned command)
{
    return command == Sci::SCI_LINEDOWN || command == Sci::SCI_LINEDOWNEXTEND ||
           command == Sci::SCI_PAGEDOWN || command == Sci::SCI_PAGEDOWNEXTEND;
}

} // namespace

/// Keeps the first visible line while others are hidden or shown above it. When it is hidden
/// itself, its header takes its place.
class FoldedLines::SameTop
{
public:
    explicit SameTop(FoldedLines &lines)
        : m_lines(lines), m_line(lines.lineIn(int(lines.send(Sci::SCI_GETFIRSTVISIBLELINE))))
    {
    }
    ~SameTop()
    {
        const int row = m_lines.rowOf(m_lines.headerOf(m_line));
        if (row != m_lines.send(Sci::SCI_GETFIRSTVISIBLELINE))
            m_lines.send(Sci::SCI_SETFIRSTVISIBLELINE, row);
    }
    Q_DISABLE_COPY_MOVE(SameTop)

private:
    FoldedLines &m_lines;
    int m_line;
};

FoldedLines::FoldedLines(QsciScintillaBase &view, const TextBuffer &text)
    : m_view(view), m_text(text)
{
    // The view tells what it is about to change, and where it splits a line the next line with it.
    QObject::connect(&view, &Sci::SCN_NEEDSHOWN, &view, [this](int at, int length) {
        if (!isNone())
            showWhole({m_text.lineOf(at), m_text.lineOf(at + length)});
    });
}

long FoldedLines::send(unsigned message, qsizetype first, qsizetype second) const
{
    return m_view.SendScintilla(message, static_cast<unsigned long>(first),
                                static_cast<long>(second));
}

bool FoldedLines::isNone() const { return send(Sci::SCI_GETALLLINESVISIBLE) != 0; }

bool FoldedLines::isHidden(int line) const
{
    return m_text.hasLine(line) && send(Sci::SCI_GETLINEVISIBLE, line - 1) == 0;
}

LineRun FoldedLines::under(int line) const
{
    if (!m_text.hasLine(line) || isHidden(line) || !isHidden(line + 1))
        return {};
    return {line + 1, std::min(lineIn(rowOf(line) + 1) - 1, m_text.lineCount())};
}

int FoldedLines::headerOf(int line) const
{
    return isHidden(line) ? lineIn(rowOf(line) - 1) : line;
}

int FoldedLines::rowCount() const
{
    return int(send(Sci::SCI_VISIBLEFROMDOCLINE, m_text.lineCount()));
}

int FoldedLines::rowOf(int line) const
{
    if (isNone())
        return line - 1;
    if (line > m_text.lineCount())
        return rowCount() + line - m_text.lineCount() - 1;
    return int(send(Sci::SCI_VISIBLEFROMDOCLINE, std::max(line, 1) - 1));
}

int FoldedLines::lineIn(int row) const
{
    if (isNone() || row < 0)
        return row + 1;
    const int rows = rowCount();
    if (row >= rows)
        return m_text.lineCount() + row - rows + 1;
    return int(send(Sci::SCI_DOCLINEFROMVISIBLE, row)) + 1;
}

std::vector<LineRun> FoldedLines::linesIn(int first, int last) const
{
    std::vector<LineRun> lines;
    const int end = std::min(last, rowCount() - 1);
    for (int row = std::max(first, 0); row <= end; ++row) {
        const int line = lineIn(row);
        if (!lines.empty() && lines.back().last == line - 1)
            lines.back().last = line;
        else
            lines.push_back({line, line});
    }
    return lines;
}

bool FoldedLines::hide(const QList<LineRun> &runs)
{
    bool hid = false;
    {
        const SameTop top(*this);
        for (const LineRun &run : runs) {
            const LineRun lines{std::max(run.first, 2), std::min(run.last, m_text.lineCount())};
            if (lines.isEmpty())
                continue;
            send(Sci::SCI_HIDELINES, lines.first - 1, lines.last - 1);
            hid = true;
        }
        if (hid)
            takeCaretOut();
    }
    m_changed |= hid;
    return hid;
}

void FoldedLines::takeCaretOut()
{
    const auto outside = [this](qsizetype offset) {
        const int line = m_text.lineOf(offset);
        return isHidden(line) ? m_text.lineEnd(headerOf(line)) : offset;
    };
    const qsizetype caret = m_text.caret();
    if (outside(caret) == caret)
        return;
    const qsizetype anchor = outside(send(Sci::SCI_GETANCHOR));
    send(Sci::SCI_SETEMPTYSELECTION, outside(caret)); // ends a rectangle too
    send(Sci::SCI_SETSELECTION, outside(caret), anchor);
    send(Sci::SCI_CHOOSECARETX);
}

void FoldedLines::showRun(const LineRun &run)
{
    const SameTop top(*this);
    send(Sci::SCI_SHOWLINES, run.first - 1, run.last - 1);
    m_changed = true;
}

/// Shows what is hidden among these lines, with all else that is hidden under the same headers.
void FoldedLines::showWhole(const LineRun &lines)
{
    const LineRun whole{
        isHidden(lines.first) ? headerOf(lines.first) + 1 : lines.first,
        isHidden(lines.last) ? under(headerOf(lines.last)).last : lines.last,
    };
    const bool allVisible = rowOf(whole.last) - rowOf(whole.first) == whole.last - whole.first;
    if (!allVisible || isHidden(whole.last))
        showRun(whole);
}

bool FoldedLines::show(int line)
{
    const LineRun run = isNone() ? LineRun() : under(headerOf(line));
    if (!run.isEmpty())
        showRun(run);
    return !run.isEmpty();
}

bool FoldedLines::showAll()
{
    if (isNone())
        return false;
    showRun({1, m_text.lineCount()});
    return true;
}

bool FoldedLines::showAt(qsizetype offset)
{
    const int line = isNone() ? 0 : m_text.lineOf(offset);
    return isHidden(line) && show(line);
}

void FoldedLines::run(unsigned command)
{
    const long anchor = send(Sci::SCI_GETANCHOR);
    const long caret = send(Sci::SCI_GETCURRENTPOS);
    m_view.SendScintilla(command);
    if (isNone())
        return;
    if (isDown(command))
        leaveHidden();
    if (!isStep(command))
        return;
    // With a selection, a step to the left or to the right only goes to its end.
    const bool leavesSelection =
        anchor != caret && (command == Sci::SCI_CHARLEFT || command == Sci::SCI_CHARRIGHT);
    while (const int line = leavesSelection ? 0 : hiddenOnTheWayFrom(m_text.lineOf(caret))) {
        show(line);
        send(Sci::SCI_SETSELECTION, caret, anchor);
        m_view.SendScintilla(command);
    }
}

void FoldedLines::leaveHidden()
{
    if (isNone())
        return;
    const qsizetype caret = m_text.caret();
    const int line = m_text.lineOf(caret);
    if (!isHidden(line))
        return;
    const qsizetype end = m_text.lineEnd(headerOf(line));
    const qsizetype anchor = send(Sci::SCI_GETANCHOR);
    send(Sci::SCI_SETSELECTION, end, anchor == caret ? end : anchor);
    send(Sci::SCI_SCROLLCARET);
}

/// The first hidden line between \a line and the caret; 0 when there is none.
int FoldedLines::hiddenOnTheWayFrom(int line) const
{
    const int end = m_text.lineOf(m_text.caret());
    if (std::abs(rowOf(end) - rowOf(line)) == std::abs(end - line))
        return 0;
    while (line != end && !isHidden(line))
        line += line < end ? 1 : -1;
    return isHidden(line) ? line : 0;
}

void FoldedLines::draw(int firstRow, int lastRow) const
{
    if (isNone())
        return;
    QPainter painter(m_view.viewport());
    const int height = int(send(Sci::SCI_TEXTHEIGHT));
    const int top = int(send(Sci::SCI_GETFIRSTVISIBLELINE));
    for (const LineRun &lines : linesIn(firstRow, lastRow)) {
        if (under(lines.last).isEmpty())
            continue;
        const int end = int(send(Sci::SCI_POINTXFROMPOSITION, 0, m_text.lineEnd(lines.last)));
        const QRect row(0, (rowOf(lines.last) - top) * height, m_view.viewport()->width(), height);
        drawHeader(painter, row, end);
    }
}

/// A thin line under the header, and three dots behind its text.
void FoldedLines::drawHeader(QPainter &painter, const QRect &row, int textEnd) const
{
    const long style = Sci::STYLE_DEFAULT;
    const Color fore{std::uint32_t(send(Sci::SCI_STYLEGETFORE, style))};
    QColor ink(fore.red(), fore.green(), fore.blue());
    ink.setAlphaF(0.3F);
    painter.fillRect(QRect(row.left(), row.bottom(), row.width(), 1), ink);
    ink.setAlphaF(0.6F);
    const int dot = std::max(row.height() / 8, 1);
    for (int i = 0; i < 3; ++i)
        painter.fillRect(QRect(textEnd + dot * (4 + 3 * i), row.center().y(), dot, dot), ink);
}

} // namespace ardiphon
