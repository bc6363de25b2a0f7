#pragma once

#include <QRect>

#include <functional>

class QPainter;

namespace ardiphon {

class LEditOCX;

/// Returns the last line of the block that begins at \a line; 0, or \a line itself, when there is
/// no block that could be folded there. Asked for the lines in view each time that they are drawn.
using FoldEnd = std::function<int(int line)>;

/// What a gutter shows beside a line about the block that begins there.
enum class FoldMark { None, Open, Folded };

/// The marks of blocks in a gutter. They stand in a column of one digit at its left edge, which the
/// numbers leave free; beside a number that needs all the room a mark is a thin bar.
class FoldMarks
{
public:
    explicit FoldMarks(LEditOCX &editor) : m_editor(editor) {}

    /// Without \a foldEnd there are only the marks of what is folded.
    void setFoldEnd(FoldEnd foldEnd) { m_foldEnd = std::move(foldEnd); }
    /// Whether a line may have a mark at all.
    bool isNone() const;

    FoldMark markOf(int line) const;
    /// Folds or unfolds the block that begins at \a line. Whether there is one.
    bool toggle(int line);

    /// Where the mark of a line is, and takes the mouse. \a row is that of the line in the gutter,
    /// \a digit the width of a digit in pixels; \a isFull when the number of the line takes all the
    /// room.
    static QRect place(const QRect &row, int digit, bool isFull);
    /// Draws a mark there in the colour of the painter's pen. \a isNear: the pointer is in the
    /// gutter; otherwise what can be folded is marked more faintly.
    static void draw(QPainter &painter, FoldMark mark, const QRect &place, bool isFull,
                     bool isNear);

private:
    LEditOCX &m_editor;
    FoldEnd m_foldEnd;
};

} // namespace ardiphon
