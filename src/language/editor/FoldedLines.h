#pragma once

#include "language/LineRun.h"
#include "language/editor/TextBuffer.h"

#include <QList>

#include <utility>
#include <vector>

class QPainter;
class QRect;

namespace ardiphon {

/// The lines of a view that are hidden, and what that means for everything that counts lines on the
/// screen. The view itself knows which lines it hides and keeps that through the edits; nothing is
/// kept here. A header is a visible line whose next line is hidden; line 1 is never hidden, so each
/// hidden line has a header. Lines count from 1, rows, the lines on the screen, from 0.
///
/// An edit that touches a hidden line shows all lines that are hidden under the same header, before
/// it is made. So no edit changes what nobody sees, and none takes the header away.
class FoldedLines
{
public:
    FoldedLines(QsciScintillaBase &view, const TextBuffer &text);

    /// Whether every line is visible.
    bool isNone() const;
    bool isHidden(int line) const;
    /// What is hidden under a visible line; empty when it is no header, or no line.
    LineRun under(int line) const;
    /// The visible line under which \a line is hidden; a visible line, or no line, itself.
    int headerOf(int line) const;

    /// Hides these lines. A caret that was on one of them is at the end of the header then. Lines
    /// that do not exist and line 1 are left out. Whether a line was hidden.
    bool hide(const QList<LineRun> &runs);
    /// Shows the lines under the same header as \a line, or those under \a line. Whether there were
    /// any.
    bool show(int line);
    bool showAll();
    /// Shows the lines under the same header as the hidden one at \a offset. Whether it was hidden.
    bool showAt(qsizetype offset);

    /// Runs a command of the view that a key gave. A step to the left or to the right goes into
    /// hidden lines, which it shows; one up or down, by a line, a paragraph or a page, skips them.
    void run(unsigned command);

    /// Where a way over the screen, by key or mouse, ended on a hidden line, as it does below the
    /// last row and where a line is selected with its end, takes the caret to the end of the
    /// header.
    void leaveHidden();

    /// The row of a visible line, from the top of the text; that of the next visible line for a
    /// hidden one. Lines after the last one have rows too.
    int rowOf(int line) const;
    /// The line in a row from the top of the text; after the text the lines go on.
    int lineIn(int row) const;
    /// The lines in rows \a first to \a last, in their order, as far as there is text.
    std::vector<LineRun> linesIn(int first, int last) const;

    /// Whether lines were hidden or shown since the last call.
    bool takeChange() { return std::exchange(m_changed, false); }
    bool isChanged() const { return m_changed; }

    /// Draws under each header of the visible part that lines are hidden there. To be called while
    /// the view is painted, after the text.
    void draw(int firstRow, int lastRow) const;

private:
    class SameTop;

    int rowCount() const;
    void showRun(const LineRun &run);
    void showWhole(const LineRun &lines);
    void takeCaretOut();
    int hiddenOnTheWayFrom(int line) const;
    void drawHeader(QPainter &painter, const QRect &row, int textEnd) const;
    long send(unsigned message, qsizetype first = 0, qsizetype second = 0) const;

    QsciScintillaBase &m_view;
    const TextBuffer &m_text;
    bool m_changed = false;
};

} // namespace ardiphon
