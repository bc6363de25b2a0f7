#pragma once

#include "language/TextSpan.h"
#include "language/editor/FoldedLines.h"
#include "platform/Color.h"

#include <QList>

#include <array>

namespace ardiphon {

/// Boxes behind parts of the text that is in view, and wavy lines under them. They lie under the
/// letters, which keep their colours, and never under the selection. The view moves them with the
/// edits.
class QuietMarks
{
public:
    static constexpr int KindCount = 5;

    QuietMarks(QsciScintillaBase &view, const TextBuffer &text, const FoldedLines &folded);

    /// Chooses colours that are seen on this background.
    void setBack(Color back);

    /// Makes \a spans all that is marked as \a kind; they count for the text of \a revision. What
    /// is in no line, or in a line that is too long, is left out, and a span ends with its line.
    void set(MarkKind kind, const QList<TextSpan> &spans, quint64 revision);

    /// Whether something has changed since the last call by which other marks may be due: the lines
    /// in view, the text, the caret, the selection or the focus. To be called before the view is
    /// painted.
    bool isDue(quint64 revision);
    /// Other marks are due the next time, whatever has changed.
    void askAgain() { m_shown = {}; }
    /// The lines that were in view at the last isDue(), but those that are too long.
    const QList<LineRun> &lines() const { return m_shown.lines; }

private:
    /// What decides which marks are due.
    struct Shown
    {
        QList<LineRun> lines;
        TextRange selection;
        qsizetype caret = -1;
        quint64 revision = 0;
        bool hasFocus = false;

        bool operator==(const Shown &) const = default;
    };
    struct Marks
    {
        QList<TextSpan> spans;
        quint64 revision = 0;
    };
    using Ranges = std::vector<TextRange>;

    Shown shownNow(quint64 revision) const;
    QList<LineRun> linesInView() const;
    bool isTooLong(int line) const;
    void draw(MarkKind kind);
    Ranges wanted(const QList<TextSpan> &spans) const;
    Ranges present(unsigned indicator) const;
    long send(unsigned message, qsizetype first = 0, qsizetype second = 0) const;

    QsciScintillaBase &m_view;
    const TextBuffer &m_text;
    const FoldedLines &m_folded;
    std::array<Marks, KindCount> m_marks;
    Shown m_shown;
};

} // namespace ardiphon
