#include "language/editor/LEditOCXPrivate.h"

#include "language/TextDifference.h"

#include <algorithm>

namespace ardiphon {

using Sci = QsciScintillaBase;

LEditOCX::Private::Private(LEditOCX &editor)
    : control(editor),
      view(*new TextView(*this, &editor)),
      text(view),
      folded(view, text),
      styling(view, text, folded),
      bookmarks(view, text),
      marks(view, text, folded),
      document(view, text),
      selection(view, text),
      search(view, text),
      presence(text),
      recorder(text)
{
    QObject::connect(&view, &TextView::SCN_MODIFIED, &control,
                     [this](int at, int type, const char *, int length) {
                         if (type & (Sci::SC_MOD_BEFOREINSERT | Sci::SC_MOD_BEFOREDELETE))
                             aboutToChange(at, type, length);
                     });
}

void LEditOCX::Private::aboutToChange(int at, int type, int length)
{
    const int removed = type & Sci::SC_MOD_BEFOREDELETE ? length : 0;
    search.forgetMatch();
    ++changes;
    styling.aboutToChange(at, removed);
    presence.aboutToChange(at, removed);
    recorder.aboutToChange(at, removed);
}

void LEditOCX::Private::reportChanges()
{
    if (isReporting)
        return;
    isReporting = true;
    for (;;) {
        if (const auto change = recorder.take())
            emit control.textChanged(*change, recorder.revision());
        else if (const bool modified = control.GetState(TextState); modified != reportedModified)
            emit control.modifiedChanged(reportedModified = modified);
        else if (folded.takeChange()) {
            emit control.foldsChanged();
            emit control.Repaint();
        } else
            break;
    }
    isReporting = false;
}

void LEditOCX::Private::aboutToDraw(int first, int last)
{
    styling.prepare(first, last, [this](int line) { return bookmarks.colorsOf(line); });
    if (marks.isDue(recorder.revision()))
        emit control.marksWanted(marks.lines());
}

void LEditOCX::Private::keyDown(EditorKey &key) { emit control.KeyDown(key); }

int LEditOCX::Private::keyPress(int character)
{
    emit control.KeyPress(character);
    return character;
}

std::optional<NewLineBlanks> LEditOCX::Private::newLineBlanks(qsizetype offset)
{
    const TextPosition at = text.positionOf(offset);
    return newLineRule ? newLineRule(at.line, at.column) : std::nullopt;
}

std::optional<QString> LEditOCX::Private::blanksWith(TextRange range, const QString &typed)
{
    const TextPosition start = text.positionOf(range.start);
    const TextPosition end = text.positionOf(range.end);
    return blanksRule && start.line == end.line
               ? blanksRule(start.line, start.column, end.column - start.column, typed)
               : std::nullopt;
}

void LEditOCX::Private::mouseButton(EditorMouseButton button) { emit control.MouseButton(button); }

void LEditOCX::Private::click() { emit control.Click(); }

// An assistive tool changes the text, and moves the caret, by calls of the library, and nothing
// reports their end.
void LEditOCX::Private::viewChanged()
{
    caretMoved();
    emit control.Repaint();
}

void LEditOCX::Private::caretMoved()
{
    showCaret();
    if (recorder.isPending() || folded.isChanged())
        QMetaObject::invokeMethod(
            &control, [this] { reportChanges(); }, Qt::QueuedConnection);
}

void LEditOCX::Private::edited()
{
    showCaret();
    reportChanges();
}

void LEditOCX::Private::show(TextRange range)
{
    const Operation operation(*this);
    folded.showAt(range.start);
    folded.showAt(range.end);
    selection.show(range);
}

void LEditOCX::Private::showCaret()
{
    if (folded.showAt(text.caret()))
        view.SendScintilla(Sci::SCI_SCROLLCARET);
}

void LEditOCX::Private::replaceDocument(const DocumentText &replacement)
{
    const Operation operation(*this);
    search.forgetMatch();
    bookmarks.detach();
    document.replace(replacement);
    recorder.documentReplaced();
    bookmarks.attach();
    styling.prepareLongLines();
}

void LEditOCX::Private::changeText(QByteArrayView wanted, qsizetype changeEnd)
{
    const TextDifference difference = differenceOf(text.bytes(0, text.size()), wanted, changeEnd);
    if (difference.isNone())
        return;
    const Operation operation(*this);
    const auto [start, end] = difference.wanted;
    const EditStep step(view);
    const qsizetype behind = text.replace(difference.present, wanted.sliced(start, end - start));
    bookmarks.inserted({difference.present.start, behind});
}

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

void LEditOCX::Private::changeFont(const std::function<void(QFont &)> &change)
{
    QFont font = styling.font();
    change(font);
    if (font == styling.font())
        return;
    styling.setFont(font);
    emit control.Repaint();
}

} // namespace ardiphon
