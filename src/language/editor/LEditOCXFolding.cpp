// Lines that are hidden, the rows of the others, and marks in them.

#include "language/GutterNumbers.h"
#include "language/editor/LEditOCXPrivate.h"

namespace ardiphon {

using Sci = QsciScintillaBase;

void LEditOCX::Private::edited()
{
    showCaret();
    reportChanges();
}

void LEditOCX::Private::showCaret()
{
    if (folded.showAt(text.caret()))
        view.SendScintilla(Sci::SCI_SCROLLCARET);
}

bool LEditOCX::FoldLines(const QList<LineRun> &runs)
{
    const Operation operation(*d);
    return d->folded.hide(runs);
}

bool LEditOCX::UnfoldAt(int line)
{
    const Operation operation(*d);
    return d->folded.show(line);
}

bool LEditOCX::UnfoldAll()
{
    const Operation operation(*d);
    return d->folded.showAll();
}

bool LEditOCX::HasFolds() const { return !d->folded.isNone(); }

bool LEditOCX::IsHidden(int line) const { return d->folded.isHidden(line); }

LineRun LEditOCX::HiddenUnder(int line) const { return d->folded.under(line); }

int LEditOCX::LineInRow(int row) const
{
    return d->folded.lineIn(int(d->view.SendScintilla(Sci::SCI_GETFIRSTVISIBLELINE)) + row);
}

int LEditOCX::LineAt(int y) const { return LineInRow(gutterLineAt(0, y, LineHeight())); }

void LEditOCX::ScrollRows(int rows)
{
    const auto top = int(d->view.SendScintilla(Sci::SCI_GETFIRSTVISIBLELINE));
    d->view.SendScintilla(Sci::SCI_SETFIRSTVISIBLELINE, std::max(top + rows, 0));
}

void LEditOCX::SetMarks(MarkKind kind, const QList<TextSpan> &spans)
{
    d->marks.set(kind, spans, d->recorder.revision());
}

int LEditOCX::CaretLine() const { return d->text.lineOf(d->text.caret()); }

int LEditOCX::CaretColumn() const { return d->text.positionOf(d->text.caret()).column; }

} // namespace ardiphon
