#pragma once

#include "language/ColoredRange.h"
#include "language/DocumentText.h"
#include "language/EditorEdit.h"
#include "language/LineRun.h"
#include "language/TextChange.h"
#include "language/TextSpan.h"
#include "language/TokenColors.h"
#include "platform/Color.h"
#include "platform/Result.h"

#include <QPoint>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ardiphon {

class LineSource;

/// A key that is pressed in the editor. A handler may set `KeyCode` to 0 to swallow the key.
struct EditorKey
{
    int KeyCode; ///< a Qt::Key
    int Shift;   ///< 1 Shift, 2 Ctrl, 4 Alt, added up
};

/// A mouse button that is pressed in the editor.
struct EditorMouseButton
{
    int Button; ///< 1 left, 2 right, 4 middle
    int Shift;  ///< as in EditorKey
    int X;      ///< twips from the control's left edge
    int Y;      ///< twips from the control's top edge
};

/// The flag of GetState and ClearState that means the text.
inline constexpr int TextState = 2;

/// The editor control: one document with its typing, caret and selection, history, clipboard, file
/// load and save, search, bookmarks, and the tokens that colouring asks for.
///
/// Lines are counted from 1, columns, in characters (QChars), from 0. `Text` has CR LF line ends,
/// whichever the file has. A call that cannot be carried out changes nothing.
///
/// What the control does not handle is passed to the window: files that are dropped, the wheel, and
/// the keys that neither type nor edit. The view inside is the focus proxy, so keys are sent to
/// that. A control that was hidden takes no focus: a setFocus leaves the focus where it is.
class LEditOCX : public QWidget
{
    Q_OBJECT

public:
    explicit LEditOCX(QWidget *parent = nullptr);
    ~LEditOCX() override;

    void setVisible(bool visible) override;

    /// Returns how a token is drawn; called for what comes into view, never for a comment.
    using TokenColorsCallback = std::function<TokenColors(TokenKind kind, const QString &text)>;
    void SetGetTokenColors(TokenColorsCallback callback);
    /// Has lines drawn by what \a callback gives for them, in place of their tokens; null for the
    /// tokens. It is called within a paint, and may read this and other controls. When it gives
    /// other colours than before though the text is the same, Redraw() shows them.
    void SetLineColors(LineColorsCallback callback);

    // The document. ----------------------------------------------------------------------------

    QString Text() const;
    /// Replaces the text as one step of history, touching only what differs.
    void SetText(const QString &text);
    /// The same with the text of another control, without an intermediate copy. Where the change
    /// may be in one of several places, the caret of \a other decides.
    void SetTextOf(const LEditOCX &other);
    bool IsEmpty() const;
    /// Whether \a text, which has no line end in it, is anywhere in the document, in the same case.
    /// Asked again for the same text it reads only what has changed since.
    bool Contains(const QString &text) const;
    int LineCount() const;
    /// Without its line end; "" for a line that does not exist.
    QString LineText(int line) const;
    /// In characters; 0 for a line that does not exist.
    int LineLength(int line) const;
    /// The lines in UTF-8, for followers that read many of them. Lives as long as the control.
    const LineSource &Lines() const;

    /// Empties the document; it has no file, no history and is not modified. No bookmark slot
    /// moves.
    void ClearDocument();
    /// Reads \a path into the document, and returns how its bytes were read. When it could not be
    /// read the document is empty, and a SaveFile to that same path is refused as long as the file
    /// exists.
    Result<DocumentForm> LoadFile(const QString &path);
    /// Writes the document to \a path, wholly or not at all, and returns how its bytes were
    /// written. A file that was loaded and not changed is written byte for byte as it was.
    Result<DocumentForm> SaveFile(const QString &path);

    /// For \a flag TextState: whether the text was modified since the state was last cleared. False
    /// for any other flag.
    bool GetState(int flag) const;
    /// For \a flag TextState: the text counts as not modified. Any other flag changes nothing.
    void ClearState(int flag);

    void Undo();
    void Redo();
    void ResetUndo();

    /// How often the text has changed so far: the last revision that textChanged() gave. A follower
    /// that reads the text later compares it with the revision that it knows.
    quint64 TextRevision() const;

    // Caret and selection. -----------------------------------------------------------------------

    /// The selection record. It is not live: GetSelection fills it, SetSelection applies it.
    int SelStartLine = 1;
    int SelStartColumn = 0;
    int SelEndLine = 1;
    int SelEndColumn = 0;

    void GetSelection();
    /// Selects what the record says, clamped to the text, and scrolls it into view.
    void SetSelection();
    int SelectionLength() const; ///< in characters, a line end counting two; 0 with no selection
    QString SelText() const;
    /// Replaces the selection, or inserts at the caret; the caret ends behind \a text.
    void SetSelText(const QString &text);
    /// The same for text that stands for what the user would have typed: see SetBlanksRule().
    void TypeSelText(const QString &text);
    void SelectAll();

    void Copy();
    void Cut();
    void Paste();

    // There may be further carets, each with its selection: one more for each call of
    // SelectNextOccurrence(), or one for each line of a rectangle that the mouse selects with Shift
    // and Alt. What is typed, deleted and pasted then is so at each of them, as one step of history
    // that is reported once. A KeyPress tells of the character once. All other calls know of one
    // caret and one selection, the latest; what sets the selection or the caret, a click without
    // these keys, an Undo or Esc leaves that one.
    bool HasFurtherCarets() const;
    /// Selects the word at the caret; where something is selected, also the next place that has it,
    /// in the same case, with a further caret. Behind the last place comes the first one. Returns
    /// whether there was anything more to select.
    bool SelectNextOccurrence();

    /// Where the caret is, without a change of the selection record.
    int CaretLine() const;
    int CaretColumn() const;

    /// Finds the word at the caret for CurrentWord(); "" when there is none.
    void UpdateCurrentWord();
    QString CurrentWord() const;

    // Search. ------------------------------------------------------------------------------------

    void SetFindText(const QString &text);
    void SetReplaceText(const QString &text);
    /// 0 backward from the selection, 1 forward from it, 2 both ways over the whole text.
    void SetFindDirection(int direction);
    void SetFindWholeWord(bool wholeWord);
    /// 1 when found: the match is selected, shown and in the record. 0 leaves all as it was.
    int FindFirst();
    /// As FindFirst, but from the record, and the result is left in the record: the view stays.
    int FindNext();
    /// Replaces the match that the last FindFirst selected; the search goes on behind it.
    void ReplaceCurrent();
    /// Replaces every match in the document as one step of history.
    void ReplaceAll();
    /// Carries out \a edits, which are in their order and do not overlap, as one step of history.
    /// The caret and the selection stay at their letters, the view where it is, and hidden lines
    /// hidden, as far as they are still there. An edit of a line that does not exist, or that
    /// overlaps the one before, is left out. Where lines are taken away and the same are put in
    /// elsewhere, bookmarks on them go along.
    void ReplaceRanges(const std::vector<EditorEdit> &edits);

    // The view. ----------------------------------------------------------------------------------

    int TopLine() const; ///< the first visible line
    /// Makes \a line the first visible one, as far as there is text to fill the view; for a hidden
    /// line the one that it is hidden under, as this shows nothing that is hidden.
    void SetTopLine(int line);
    int LineHeight() const; ///< in pixels
    /// The pixel position, within the control, of a text position; on a hidden line, that of the
    /// end of the line that it is hidden under.
    QPoint PositionToPixels(int line, int column) const;

    void SetBackColor(Color color);
    void SetForeColor(Color color); ///< of comments
    void SetSelectionBackColor(Color color);
    void SetSelectionForeColor(Color color);
    /// Draws the view again, its tokens in the colours that the callback gives for them now, and
    /// with other marks if they are due.
    void Redraw();

    QString FontName() const;
    void SetFontName(const QString &name);
    double FontSize() const; ///< in points
    void SetFontSize(double points);
    void SetFontBold(bool on);
    void SetFontItalic(bool on);
    void SetFontUnderline(bool on);
    void SetFontStrikethrough(bool on);

    int TabSize() const; ///< in characters
    void SetTabSize(int characters);
    void SetAutoIndent(bool on);
    /// Has Enter ask \a rule for the blanks of the line that it ends, at that line and column, and
    /// of the new one; none for what SetAutoIndent says. With several carets it is not asked.
    using NewLineRule = std::function<std::optional<NewLineBlanks>(int line, int column)>;
    void SetNewLineRule(NewLineRule rule);
    /// Has a typed character, and TypeSelText(), ask \a rule which blanks the line is to begin with
    /// when \a text has taken the place of \a length characters from \a column on; none leaves
    /// them. Both then are one step of history. A character that is typed at several carets or over
    /// a selection does not ask.
    using BlanksRule = std::function<std::optional<QString>(int line, int column, int length,
                                                            const QString &text)>;
    void SetBlanksRule(BlanksRule rule);

    // Bookmarks. ---------------------------------------------------------------------------------

    /// Puts slot \a index, 0 to 31, on \a line; -1 frees it. The line follows the edits above it;
    /// when it is deleted, the slot is on the line that takes its place, until an undo brings it
    /// back.
    void SetBookmarkLine(int index, int line);
    /// The line of the slot, -1 when it is free.
    int GetBookmarkLine(int index) const;
    void SetBookmarkBackColor(int index, Color color);
    void SetBookmarkForeColor(int index, Color color);
    void ClearBookmarkBackColor(int index);
    void ClearBookmarkForeColor(int index);

    // Folding. -----------------------------------------------------------------------------------

    // A fold is a visible line, its header, with hidden lines under it. The caret is never on a
    // hidden line: what puts it there, by whichever way, shows that line and all that is hidden
    // under the same header. So do a selection that is set and begins there, and an edit that
    // touches a hidden line or the line end of its header. A selection may go over hidden lines. A
    // line number is that of the text, whatever is hidden; rows are what is on the screen. Each
    // control folds on its own, also where it shows the same text as another. A document that is
    // replaced, by LoadFile or ClearDocument, is all visible.

    /// Hides these lines, each run under the line before it; what there is of one run in another
    /// becomes part of the same fold. A caret that is hidden moves to the end of the header.
    /// Line 1 and lines that do not exist are left out. The first visible line stays
    /// where it is. Returns whether any line is hidden by it.
    bool FoldLines(const QList<LineRun> &runs);
    /// Shows the lines that are hidden under \a line, or under the same header as it. Returns
    /// whether there were any.
    bool UnfoldAt(int line);
    /// Shows all lines. Returns whether any was hidden.
    bool UnfoldAll();
    bool HasFolds() const; ///< whether any line is hidden
    bool IsHidden(int line) const;
    bool IsFolded(int line) const { return !HiddenUnder(line).isEmpty(); }
    /// The lines that are hidden under a visible line; an empty run where there are none.
    LineRun HiddenUnder(int line) const;

    /// The line that is \a row rows below the first visible one, which is in row 0. Below the text
    /// the lines go on.
    int LineInRow(int row) const;
    /// The same for a height in the control, in pixels.
    int LineAt(int y) const;
    /// Scrolls down by so many rows, up for less than 0, as far as there is text.
    void ScrollRows(int rows);

    // Quiet marks. -------------------------------------------------------------------------------

    /// Marks these parts of the text as \a kind, and nothing else as that: a box behind the
    /// letters, or a wavy line under them for what is wrong, which leaves their colours and those
    /// of the selection as they are. The marks move with the edits. Parts that do not exist are
    /// left out, as are those in lines of more than 16 KiB; a part ends with its line. Meant for
    /// what is in view: see marksWanted().
    void SetMarks(MarkKind kind, const QList<TextSpan> &spans);
    /// Has marksWanted() emitted soon though nothing has changed that it follows.
    void AskForMarks();

signals:
    /// The left button was released; the caret is where it was pressed.
    void Click();
    /// What is visible changed: text, scroll position, size or font.
    void Repaint();
    void KeyDown(ardiphon::EditorKey &key);
    /// A character is about to be typed; a handler may set it to 0 to swallow it. Enter is 13, Tab
    /// 9, Backspace 8 and Delete 127. Text that the mouse inserted or removed is reported
    /// afterwards, as 22 and 24, the codes of Ctrl+V and Ctrl+X.
    void KeyPress(int &character);
    void MouseButton(ardiphon::EditorMouseButton &button);

    // For followers of the text. ------------------------------------------------------------------

    /// The text changed, by whatever way: keys, mouse, an input method, an assistive tool, or a
    /// call of the contract. \a revision grows by one each time.
    ///
    /// Emitted once for each operation, when it is complete and the text can be read: a character
    /// that is typed, also over a selection; a paste; a ReplaceAll, from its first match to its
    /// last; an Undo or a Redo of a whole step. SetText reports the lines that differ, and nothing
    /// where none does. A document that is replaced, by LoadFile (also one that failed) or
    /// ClearDocument, is always reported as line 1, with all lines of the old text removed and all
    /// of the new one added; an empty text has one line. Each of two views that mirror each other
    /// reports its own changes, when they reach it.
    ///
    /// Emitted within the call, before it returns; for a key after its KeyPress, for the mouse
    /// before it, for an assistive tool soon afterwards. What only moves the caret, draws, or
    /// clears the modified state is not reported.
    ///
    /// A follower may read everything. When one changes the text, that is reported to all after
    /// this change, with the next revision; so a follower that may be called after it reads lines
    /// only where \a revision is TextRevision(), and joins the changes until then
    /// (TextChange::join). No follower may delete the control.
    void textChanged(const ardiphon::TextChange &change, quint64 revision);
    /// The caret or the selection is where it was not; emitted before it is drawn there.
    void caretMoved();
    /// GetState(TextState) is now \a modified, and was not before. Emitted after the textChanged()
    /// of the same operation.
    void modifiedChanged(bool modified);
    /// Lines were hidden or shown, by a call or as something landed in them. Emitted when the
    /// operation is complete, after its textChanged().
    void foldsChanged();
    /// The view is about to be painted, and since the last time the lines in view, the text, the
    /// caret, the selection or the focus have changed; so other marks may be due. \a lines are
    /// those in view, in their order, without hidden ones and those of more than 16 KiB. A follower
    /// calls SetMarks() now or later, and changes nothing else.
    void marksWanted(const QList<ardiphon::LineRun> &lines);

private:
    class Operation;
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace ardiphon
