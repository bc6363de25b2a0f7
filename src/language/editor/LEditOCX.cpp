#include "language/editor/LEditOCX.h"

#include "language/TextDifference.h"
#include "language/Utf8.h"
#include "language/editor/LEditOCXPrivate.h"
#include "platform/DocumentFile.h"

#include <QFileInfo>
#include <QVBoxLayout>

#include <algorithm>

namespace ardiphon {

using Sci = QsciScintillaBase;

namespace {

QString canonical(const QString &path) { return QFileInfo(path).canonicalFilePath(); }

} // namespace

LEditOCX::Private::Private(LEditOCX &editor)
    : control(editor),
      view(*new TextView(*this, &editor)),
      text(view),
      folded(view, text),
      styling(view, text, folded),
      bookmarks(view, text),
      marks(view, text, folded),
      presence(text),
      recorder(text)
{
    text.setLineEndKind(form.lineEnd);
    QObject::connect(&view, &TextView::SCN_MODIFIED, &control,
                     [this](int at, int type, const char *, int length) {
                         if (type & (Sci::SC_MOD_BEFOREINSERT | Sci::SC_MOD_BEFOREDELETE))
                             aboutToChange(at, type, length);
                     });
}

void LEditOCX::Private::aboutToChange(int at, int type, int length)
{
    const int removed = type & Sci::SC_MOD_BEFOREDELETE ? length : 0;
    match.reset();
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

void LEditOCX::Private::replaceDocument(const DocumentText &document)
{
    const Operation operation(*this);
    form = document.form;
    unreadFile.clear();
    modifiedBefore = false;
    match.reset();
    bookmarks.detach();
    text.reset(document.utf8);
    recorder.documentReplaced();
    text.setLineEndKind(form.lineEnd);
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

LEditOCX::LEditOCX(QWidget *parent) : QWidget(parent), d(std::make_unique<Private>(*this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&d->view);
    setFocusProxy(&d->view);
}

// The view calls back while it is destroyed, so it is destroyed while the rest still exists.
LEditOCX::~LEditOCX() { delete &d->view; }

// The toolkit gives the focus to a widget that is hidden, but not to one that is disabled.
void LEditOCX::setVisible(bool visible)
{
    QWidget::setVisible(visible);
    setEnabled(visible);
}

QString LEditOCX::Text() const { return d->text.text({0, d->text.size()}); }

void LEditOCX::SetText(const QString &text) { d->changeText(text.toUtf8(), -1); }

void LEditOCX::SetTextOf(const LEditOCX &other)
{
    if (d->source == &other && d->sourceChanges == other.d->changes &&
        d->changesWithSource == d->changes)
        return;
    const Operation operation(*d);
    const qsizetype changeEnd = other.d->text.selection().end;
    d->changeText(other.d->text.bytes(0, other.d->text.size()), changeEnd);
    d->source = &other;
    d->sourceChanges = other.d->changes;
    d->changesWithSource = d->changes;
}

bool LEditOCX::IsEmpty() const { return d->text.size() == 0; }

bool LEditOCX::Contains(const QString &text) const { return d->presence.contains(text.toUtf8()); }

int LEditOCX::LineCount() const { return d->text.lineCount(); }

QString LEditOCX::LineText(int line) const
{
    return d->text.hasLine(line) ? stringOf(d->text.lineBytes(line)) : QString();
}

int LEditOCX::LineLength(int line) const
{
    return d->text.hasLine(line) ? d->text.positionOf(d->text.lineEnd(line)).column : 0;
}

void LEditOCX::ClearDocument() { d->replaceDocument({}); }

Result<DocumentForm> LEditOCX::LoadFile(const QString &path)
{
    const Operation operation(*d);
    Result<QByteArray> bytes = readDocumentFile(path);
    d->replaceDocument(bytes ? decodeDocument(*std::move(bytes)) : DocumentText());
    if (bytes)
        return d->form;
    d->unreadFile = canonical(path);
    return bytes.failure();
}

Result<DocumentForm> LEditOCX::SaveFile(const QString &path)
{
    if (!d->unreadFile.isEmpty() && canonical(path) == d->unreadFile)
        return FileFailure{FileFailure::Kind::NotRead};
    DocumentForm form = d->form;
    const QByteArray utf8 = d->text.bytes(0, d->text.size()).toByteArray();
    if (const auto written = writeDocumentFile(path, encodeDocument(utf8, form)); !written)
        return written.failure();
    d->form = form;
    return form;
}

bool LEditOCX::GetState(int flag) const
{
    return flag == TextState &&
           (d->modifiedBefore || d->view.SendScintilla(Sci::SCI_GETMODIFY) != 0);
}

void LEditOCX::ClearState(int flag)
{
    if (flag != TextState)
        return;
    const Operation operation(*d);
    d->modifiedBefore = false;
    d->view.SendScintilla(Sci::SCI_SETSAVEPOINT);
}

void LEditOCX::Undo()
{
    const Operation operation(*d);
    d->view.SendScintilla(Sci::SCI_UNDO);
}

void LEditOCX::Redo()
{
    const Operation operation(*d);
    d->view.SendScintilla(Sci::SCI_REDO);
}

void LEditOCX::ResetUndo()
{
    d->modifiedBefore = GetState(TextState);
    d->view.SendScintilla(Sci::SCI_EMPTYUNDOBUFFER);
    d->bookmarks.forgetHistory();
}

quint64 LEditOCX::TextRevision() const { return d->recorder.revision(); }

} // namespace ardiphon
