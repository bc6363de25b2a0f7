#include "language/editor/LEditOCX.h"

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

// The stretch of a text that is to be replaced, and by which stretch of another.
struct Difference
{
    TextRange old;
    TextRange replacement;
};

// Whether an offset in the text lies between two characters and not inside a line end.
bool isBoundary(QByteArrayView text, qsizetype at)
{
    if (at <= 0 || at >= text.size())
        return true;
    if (text[at - 1] == '\r' && text[at] == '\n')
        return false;
    return (static_cast<unsigned char>(text[at]) & 0xC0) != 0x80;
}

// What is left between the common head and the common tail of two texts of like line ends.
Difference differenceOf(QByteArrayView old, QByteArrayView text)
{
    const qsizetype shorter = std::min(old.size(), text.size());
    qsizetype head =
        std::mismatch(old.begin(), old.begin() + shorter, text.begin()).first - old.begin();
    while (!isBoundary(old, head) || !isBoundary(text, head))
        --head;
    qsizetype tail = 0;
    while (tail < shorter - head && old[old.size() - 1 - tail] == text[text.size() - 1 - tail])
        ++tail;
    while (!isBoundary(old, old.size() - tail) || !isBoundary(text, text.size() - tail))
        --tail;
    return {{head, old.size() - tail}, {head, text.size() - tail}};
}

} // namespace

LEditOCX::Private::Private(LEditOCX &editor)
    : control(editor),
      view(*new TextView(*this, &editor)),
      text(view),
      styling(view, text),
      bookmarks(view, text)
{
    text.setLineEndKind(form.lineEnd);
    QObject::connect(&view, &TextView::SCEN_CHANGE, &control, [this] { match.reset(); });
}

void LEditOCX::Private::aboutToDraw(int first, int last)
{
    styling.prepare(first, last, [this](int line) { return bookmarks.colorsOf(line); });
}

void LEditOCX::Private::keyDown(EditorKey &key) { emit control.KeyDown(key); }

int LEditOCX::Private::keyPress(int character)
{
    emit control.KeyPress(character);
    return character;
}

void LEditOCX::Private::mouseButton(EditorMouseButton button) { emit control.MouseButton(button); }

void LEditOCX::Private::click() { emit control.Click(); }

void LEditOCX::Private::viewChanged() { emit control.Repaint(); }

void LEditOCX::Private::replaceDocument(DocumentText document)
{
    form = document.form;
    unreadFile.clear();
    modifiedBefore = false;
    match.reset();
    bookmarks.detach();
    text.reset(document.utf8);
    text.setLineEndKind(form.lineEnd);
    bookmarks.attach();
    styling.prepareLongLines();
}

LEditOCX::LEditOCX(QWidget *parent) : QWidget(parent), d(std::make_unique<Private>(*this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&d->view);
    setFocusProxy(&d->view);
}

// The view calls back while it goes, so it goes while the rest is still there.
LEditOCX::~LEditOCX() { delete &d->view; }

QString LEditOCX::Text() const { return d->text.text({0, d->text.size()}); }

void LEditOCX::SetText(const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    // Offsets are found in texts whose line ends are alike, and told as lines and columns.
    const QByteArray wanted = withLineEnds(utf8, LineEnd::Lf);
    const QByteArray present = withLineEnds(d->text.bytes(0, d->text.size()), LineEnd::Lf);
    const Difference difference = differenceOf(present, wanted);
    if (difference.old.start == difference.old.end &&
        difference.replacement.start == difference.replacement.end)
        return;
    const auto toOffset = [&](qsizetype at) {
        const QByteArrayView before = QByteArrayView(present).first(at);
        const qsizetype lineStart = before.lastIndexOf('\n') + 1;
        const int line = int(std::count(before.begin(), before.end(), '\n')) + 1;
        return d->text.lineStart(line) + (at - lineStart);
    };
    const EditStep step(d->view);
    d->text.replace(
        {toOffset(difference.old.start), toOffset(difference.old.end)},
        QByteArrayView(wanted).sliced(difference.replacement.start,
                                      difference.replacement.end - difference.replacement.start));
}

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

bool LEditOCX::LoadFile(const QString &path)
{
    auto bytes = readDocumentFile(path);
    d->replaceDocument(bytes ? decodeDocument(*std::move(bytes)) : DocumentText());
    if (!bytes)
        d->unreadFile = canonical(path);
    return bytes.has_value();
}

bool LEditOCX::SaveFile(const QString &path)
{
    if (!d->unreadFile.isEmpty() && canonical(path) == d->unreadFile)
        return false;
    DocumentForm form = d->form;
    const QByteArray utf8 = d->text.bytes(0, d->text.size()).toByteArray();
    if (!writeDocumentFile(path, encodeDocument(utf8, form)))
        return false;
    d->form = form;
    return true;
}

bool LEditOCX::GetState(int flag) const
{
    return flag == 2 && (d->modifiedBefore || d->view.SendScintilla(Sci::SCI_GETMODIFY) != 0);
}

void LEditOCX::ClearState(int flag)
{
    if (flag != 2)
        return;
    d->modifiedBefore = false;
    d->view.SendScintilla(Sci::SCI_SETSAVEPOINT);
}

void LEditOCX::Undo() { d->view.SendScintilla(Sci::SCI_UNDO); }

void LEditOCX::Redo() { d->view.SendScintilla(Sci::SCI_REDO); }

void LEditOCX::ResetUndo()
{
    d->modifiedBefore = GetState(2);
    d->view.SendScintilla(Sci::SCI_EMPTYUNDOBUFFER);
}

} // namespace ardiphon
