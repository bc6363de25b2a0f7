#pragma once

#include "language/TextPresence.h"
#include "language/editor/BookmarkMarkers.h"
#include "language/editor/ChangeRecorder.h"
#include "language/editor/FoldedLines.h"
#include "language/editor/LEditOCX.h"
#include "language/editor/QuietMarks.h"
#include "language/editor/Styling.h"
#include "language/editor/TextBuffer.h"
#include "language/editor/TextSelection.h"
#include "language/editor/TextView.h"
#include "language/editor/ViewDocument.h"
#include "language/editor/ViewSearch.h"

#include <QPointer>

namespace ardiphon {

/// What is inside the control: the view with the document in it, and what the contract adds.
class LEditOCX::Private final : public TextViewOwner
{
public:
    explicit Private(LEditOCX &control);

    void replaceDocument(const DocumentText &replacement);
    /// Makes \a wanted the text, as one step of history that touches only what differs. Where the
    /// change may be in one of several places, it is the one that ends at \a changeEnd; -1 where
    /// that is not known.
    void changeText(QByteArrayView wanted, qsizetype changeEnd);
    /// The selection record of the contract.
    TextRange record() const;
    void setRecord(TextRange range);
    void changeFont(const std::function<void(QFont &)> &change);
    /// Selects the range, and shows it with what is hidden at its ends.
    void show(TextRange range);
    /// Shows the hidden lines that the caret has come to.
    void showCaret();
    /// Reports to the followers what has changed since the last time.
    void reportChanges();
    /// What the rule for blanks says of \a text in the place of \a range.
    std::optional<QString> blanksWith(TextRange range, const QString &text);

    LEditOCX &control;
    TextView &view;
    TextBuffer text;
    FoldedLines folded;
    Styling styling;
    BookmarkMarkers bookmarks;
    QuietMarks marks;

    ViewDocument document;
    TextSelection selection;
    ViewSearch search;
    TextPresence presence;
    QString currentWord;
    NewLineRule newLineRule;
    BlanksRule blanksRule;

    quint64 changes = 0; ///< of the text so far
    /// The control whose text was copied last, and how often both had changed then.
    QPointer<const LEditOCX> source;
    quint64 sourceChanges = 0;
    quint64 changesWithSource = 0;

    ChangeRecorder recorder;
    int operations = 0; ///< of the contract, one inside the other
    bool isReporting =
        false; ///< a follower's own change is reported after the one it is called for
    bool reportedModified = false; ///< the modified state as the followers know it

private:
    void aboutToChange(int at, int type, int length);
    void aboutToDraw(int first, int last) override;
    void drawn(int first, int last) override { folded.draw(first, last); }
    void run(unsigned command) override { folded.run(command); }
    void keyDown(EditorKey &key) override;
    int keyPress(int character) override;
    std::optional<NewLineBlanks> newLineBlanks(qsizetype offset) override;
    std::optional<QString> typedBlanks(qsizetype offset, const QString &character) override
    {
        return blanksWith({offset, offset}, character);
    }
    void mouseButton(EditorMouseButton button) override;
    void pointed() override { folded.leaveHidden(); }
    void click() override;
    void viewChanged() override;
    void caretMoved() override;
    void selectionMoved() override { emit control.caretMoved(); }
    void edited() override;
};

/// One call of the contract that may change the text or its state, or what is hidden of it. What it
/// changed is reported when it ends; so it is declared before everything else that acts at the end
/// of the call.
class LEditOCX::Operation
{
public:
    explicit Operation(Private &editor) : m_editor(editor) { ++m_editor.operations; }
    ~Operation()
    {
        if (--m_editor.operations != 0)
            return;
        m_editor.showCaret();
        m_editor.reportChanges();
    }
    Q_DISABLE_COPY_MOVE(Operation)

private:
    Private &m_editor;
};

} // namespace ardiphon
