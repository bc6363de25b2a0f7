#include "language/editor/LEditOCX.h"

#include "language/GutterNumbers.h"
#include "language/Utf8.h"
#include "language/editor/LEditOCXPrivate.h"
#include "language/editor/RangeEdits.h"
#include "platform/DocumentFile.h"

#include <QVBoxLayout>

#include <algorithm>

namespace ardiphon {

using Sci = QsciScintillaBase;

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

// The document. -----------------------------------------------------------------------------------

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

const LineSource &LEditOCX::Lines() const { return d->text; }

void LEditOCX::ClearDocument() { d->replaceDocument({}); }

Result<DocumentForm> LEditOCX::LoadFile(const QString &path)
{
    const Operation operation(*d);
    Result<QByteArray> bytes = readDocumentFile(path);
    d->replaceDocument(bytes ? decodeDocument(*std::move(bytes)) : DocumentText());
    if (bytes)
        return d->document.form();
    d->document.noteUnread(path);
    return bytes.failure();
}

Result<DocumentForm> LEditOCX::SaveFile(const QString &path) { return d->document.save(path); }

bool LEditOCX::GetState(int flag) const { return flag == TextState && d->document.isModified(); }

void LEditOCX::ClearState(int flag)
{
    if (flag != TextState)
        return;
    const Operation operation(*d);
    d->document.clearModified();
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
    d->document.forgetHistory();
    d->bookmarks.forgetHistory();
}

quint64 LEditOCX::TextRevision() const { return d->recorder.revision(); }

// Caret and selection. ----------------------------------------------------------------------------

void LEditOCX::GetSelection() { d->setRecord(d->selection.range()); }

void LEditOCX::SetSelection() { d->show(d->record()); }

int LEditOCX::SelectionLength() const { return int(SelText().size()); }

QString LEditOCX::SelText() const { return d->selection.text(); }

void LEditOCX::SetSelText(const QString &text)
{
    const Operation operation(*d);
    d->selection.replace(text);
}

void LEditOCX::TypeSelText(const QString &text)
{
    const Operation operation(*d);
    const TextRange range = d->selection.range();
    const qsizetype start = d->text.lineStart(d->text.lineOf(range.start));
    const auto blanks = d->blanksWith(range, text);
    const EditStep step(d->view);
    d->selection.replace(text);
    if (!blanks)
        return;
    const QByteArrayView line = d->text.lineBytes(d->text.lineOf(start));
    const auto end =
        std::find_if_not(line.begin(), line.end(), [](char c) { return c == ' ' || c == '\t'; });
    d->text.replace({start, start + (end - line.begin())}, blanks->toUtf8());
}

void LEditOCX::SelectAll()
{
    d->view.carets().drop();
    d->view.SendScintilla(Sci::SCI_SELECTALL);
}

bool LEditOCX::HasFurtherCarets() const { return d->view.carets().areThere(); }

bool LEditOCX::SelectNextOccurrence()
{
    const Operation operation(*d);
    return d->view.carets().addNextOccurrence();
}

int LEditOCX::CaretLine() const { return d->text.lineOf(d->text.caret()); }

int LEditOCX::CaretColumn() const { return d->text.positionOf(d->text.caret()).column; }

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

// Search. -----------------------------------------------------------------------------------------

void LEditOCX::SetFindText(const QString &text) { d->search.setFindText(text); }

void LEditOCX::SetReplaceText(const QString &text) { d->search.setReplaceText(text); }

void LEditOCX::SetFindDirection(int direction) { d->search.setDirection(direction); }

void LEditOCX::SetFindWholeWord(bool wholeWord) { d->search.setWholeWord(wholeWord); }

int LEditOCX::FindFirst()
{
    const auto found = d->search.find(d->selection.range());
    if (!found)
        return 0;
    d->show(*found);
    d->setRecord(*found);
    d->search.keepMatch(*found);
    return 1;
}

int LEditOCX::FindNext()
{
    const auto found = d->search.find(d->record());
    if (found)
        d->setRecord(*found);
    return found ? 1 : 0;
}

void LEditOCX::ReplaceCurrent()
{
    if (d->search.isMatch(d->selection.range()))
        SetSelText(d->search.replaceText());
}

void LEditOCX::ReplaceAll()
{
    const std::vector<TextRange> matches = d->search.findAll();
    if (matches.empty())
        return;
    const Operation operation(*d);
    d->search.replace(matches);
}

void LEditOCX::ReplaceRanges(const std::vector<EditorEdit> &edits)
{
    RangeEdits changes(d->text, edits);
    if (changes.isEmpty())
        return;
    const Operation operation(*d);
    d->view.carets().drop();
    const RangeEdits::MovedLines moved = changes.movedLines();
    const auto bookmarks = d->bookmarks.slotsOn(moved.lines);
    changes.carryOut(d->view, d->folded);
    for (const auto &[index, line] : bookmarks)
        d->bookmarks.carry(index, line + moved.shift);
}

// The view. ---------------------------------------------------------------------------------------

void LEditOCX::SetGetTokenColors(TokenColorsCallback callback)
{
    d->styling.setTokenColors(std::move(callback));
}

void LEditOCX::SetLineColors(LineColorsCallback callback)
{
    d->styling.setLineColors(std::move(callback));
}

int LEditOCX::TopLine() const { return LineInRow(0); }

void LEditOCX::SetTopLine(int line)
{
    const int row = d->folded.rowOf(d->folded.headerOf(std::max(line, 1)));
    d->view.SendScintilla(Sci::SCI_SETFIRSTVISIBLELINE, row);
}

int LEditOCX::LineHeight() const { return int(d->view.SendScintilla(Sci::SCI_TEXTHEIGHT)); }

QPoint LEditOCX::PositionToPixels(int line, int column) const
{
    const int header = d->folded.headerOf(line);
    const auto offset =
        long(header == line ? d->text.offsetOf({line, column}) : d->text.lineEnd(header));
    const QPoint inView(int(d->view.SendScintilla(Sci::SCI_POINTXFROMPOSITION, 0UL, offset)),
                        int(d->view.SendScintilla(Sci::SCI_POINTYFROMPOSITION, 0UL, offset)));
    return d->view.viewport()->mapTo(this, inView);
}

void LEditOCX::SetBackColor(Color color)
{
    d->styling.setBack(color);
    d->marks.setBack(color);
}

void LEditOCX::SetForeColor(Color color) { d->styling.setCommentFore(color); }

void LEditOCX::SetSelectionBackColor(Color color) { d->styling.setSelectionBack(color); }

void LEditOCX::SetSelectionForeColor(Color color) { d->styling.setSelectionFore(color); }

void LEditOCX::Redraw()
{
    d->marks.askAgain();
    d->styling.redraw();
}

QString LEditOCX::FontName() const { return d->styling.font().family(); }

void LEditOCX::SetFontName(const QString &name)
{
    if (!name.isEmpty())
        d->changeFont([&](QFont &font) { font.setFamilies({name}); });
}

double LEditOCX::FontSize() const { return d->styling.font().pointSizeF(); }

void LEditOCX::SetFontSize(double points)
{
    if (points >= 1 && points <= 1000)
        d->changeFont([=](QFont &font) { font.setPointSizeF(points); });
}

void LEditOCX::SetFontBold(bool on)
{
    d->changeFont([=](QFont &font) { font.setBold(on); });
}

void LEditOCX::SetFontItalic(bool on)
{
    d->changeFont([=](QFont &font) { font.setItalic(on); });
}

void LEditOCX::SetFontUnderline(bool on)
{
    d->changeFont([=](QFont &font) { font.setUnderline(on); });
}

void LEditOCX::SetFontStrikethrough(bool on)
{
    d->changeFont([=](QFont &font) { font.setStrikeOut(on); });
}

int LEditOCX::TabSize() const { return int(d->view.SendScintilla(Sci::SCI_GETTABWIDTH)); }

void LEditOCX::SetTabSize(int characters)
{
    if (characters >= 1 && characters <= 1000)
        d->view.SendScintilla(Sci::SCI_SETTABWIDTH, characters);
}

void LEditOCX::SetAutoIndent(bool on) { d->view.setAutoIndent(on); }

void LEditOCX::SetNewLineRule(NewLineRule rule) { d->newLineRule = std::move(rule); }

void LEditOCX::SetBlanksRule(BlanksRule rule) { d->blanksRule = std::move(rule); }

// Bookmarks. --------------------------------------------------------------------------------------

void LEditOCX::SetBookmarkLine(int index, int line) { d->bookmarks.setLine(index, line); }

int LEditOCX::GetBookmarkLine(int index) const { return d->bookmarks.line(index); }

void LEditOCX::SetBookmarkBackColor(int index, Color color)
{
    d->bookmarks.setColors(index, {color, d->bookmarks.colors(index).fore});
}

void LEditOCX::SetBookmarkForeColor(int index, Color color)
{
    d->bookmarks.setColors(index, {d->bookmarks.colors(index).back, color});
}

void LEditOCX::ClearBookmarkBackColor(int index)
{
    d->bookmarks.setColors(index, {std::nullopt, d->bookmarks.colors(index).fore});
}

void LEditOCX::ClearBookmarkForeColor(int index)
{
    d->bookmarks.setColors(index, {d->bookmarks.colors(index).back, std::nullopt});
}

// Folding. ----------------------------------------------------------------------------------------

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

void LEditOCX::AskForMarks()
{
    d->marks.askAgain();
    d->view.viewport()->update();
}

} // namespace ardiphon
