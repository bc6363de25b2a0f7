// Caret, selection, clipboard and the word at the caret.

#include "language/editor/LEditOCXPrivate.h"

namespace ardiphon {

using Sci = QsciScintillaBase;

void LEditOCX::Private::setRecord(TextRange range)
{
    const TextPosition start = text.positionOf(range.start);
    const TextPosition end = text.positionOf(range.end);
    control.SelStartLine = start.line;
    control.SelStartColumn = start.column;
    control.SelEndLine = end.line;
    control.SelEndColumn = end.column;
}

TextRange LEditOCX::Private::record() const
{
    const qsizetype start = text.offsetOf({control.SelStartLine, control.SelStartColumn});
    const qsizetype end = text.offsetOf({control.SelEndLine, control.SelEndColumn});
    return {std::min(start, end), std::max(start, end)};
}

// A long series of searches and replacements turns the updates off; then nothing is scrolled, as
// the library would lay out a line for each of them, which takes far longer than they do.
void LEditOCX::Private::show(TextRange range)
{
    const Operation operation(*this);
    text.select(range);
    folded.showAt(range.start);
    folded.showAt(range.end);
    if (!control.updatesEnabled())
        return;
    // Set again in this way the library treats it as the user's selection: it draws it in the
    // colours of a selection, and the middle button pastes it.
    if (range.start < range.end)
        view.SendScintilla(Sci::SCI_SETANCHOR, ulong(range.start));
    view.SendScintilla(Sci::SCI_SCROLLRANGE, ulong(range.start), long(range.end));
    view.SendScintilla(Sci::SCI_CHOOSECARETX);
}

void LEditOCX::GetSelection() { d->setRecord(d->text.selection()); }

void LEditOCX::SetSelection() { d->show(d->record()); }

int LEditOCX::SelectionLength() const { return int(SelText().size()); }

QString LEditOCX::SelText() const { return d->text.text(d->text.selection()); }

void LEditOCX::SetSelText(const QString &text)
{
    const Operation operation(*d);
    const EditStep step(d->view);
    const qsizetype end = d->text.replace(d->text.selection(), text.toUtf8());
    d->text.select({end, end});
    if (!updatesEnabled())
        return;
    d->view.SendScintilla(Sci::SCI_SCROLLCARET);
    d->view.SendScintilla(Sci::SCI_CHOOSECARETX);
}

void LEditOCX::SelectAll() { d->view.SendScintilla(Sci::SCI_SELECTALL); }

void LEditOCX::Copy() { d->view.SendScintilla(Sci::SCI_COPY); }

void LEditOCX::Cut()
{
    const Operation operation(*d);
    d->view.SendScintilla(Sci::SCI_CUT);
}

void LEditOCX::Paste()
{
    const Operation operation(*d);
    d->view.SendScintilla(Sci::SCI_PASTE);
}

void LEditOCX::UpdateCurrentWord()
{
    const qsizetype caret = d->text.caret();
    const int line = d->text.lineOf(caret);
    const LineState state = d->styling.stateAt(line);
    d->currentWord = wordAt(d->text.lineBytes(line), caret - d->text.lineStart(line), state);
}

QString LEditOCX::CurrentWord() const { return d->currentWord; }

} // namespace ardiphon
