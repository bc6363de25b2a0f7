#pragma once

#include "language/editor/FurtherCarets.h"
#include "language/editor/LEditOCX.h"
#include "language/editor/ViewCommands.h"
#include "language/editor/ViewTyping.h"

#include <Qsci/qsciscintillabase.h>

#include <utility>

namespace ardiphon {

/// What the view reports to the control that holds it, and asks it for.
class TextViewOwner
{
public:
    /// Rows \a first to \a last, from the top of the text, are about to be drawn.
    virtual void aboutToDraw(int first, int last) = 0;
    /// They are drawn now, and more may be painted over them.
    virtual void drawn(int first, int last) = 0;
    /// A key gave this command of the library, which is to be run.
    virtual void run(unsigned command) = 0;
    virtual void keyDown(EditorKey &key) = 0;
    /// The character to type instead, 0 for none.
    virtual int keyPress(int character) = 0;
    /// The blanks for an Enter there; none where the view is to choose them.
    virtual std::optional<NewLineBlanks> newLineBlanks(qsizetype offset) = 0;
    /// The blanks that the line is to begin with when the character is typed there; none where they
    /// stay.
    virtual std::optional<QString> typedBlanks(qsizetype offset, const QString &character) = 0;
    virtual void mouseButton(EditorMouseButton button) = 0;
    /// The mouse may have moved the caret.
    virtual void pointed() = 0;
    virtual void click() = 0;
    virtual void viewChanged() = 0;
    /// The caret or the selection may have changed, in a view that shows the same.
    virtual void caretMoved() = 0;
    /// The caret or the selection is about to be drawn where it was not.
    virtual void selectionMoved() = 0;
    /// A key, the mouse or an input method moved the caret, or made an edit that is complete.
    virtual void edited() = 0;

protected:
    ~TextViewOwner() = default;
};

/// The Scintilla view inside the control. Turns the system's events into those of the contract;
/// keys go to its commands and its typing, and the control does the rest.
class TextView : public QsciScintillaBase
{
    Q_OBJECT

public:
    TextView(TextViewOwner &owner, QWidget *parent);

    void setAutoIndent(bool on) { m_typing.setAutoIndent(on); }
    FurtherCarets &carets() { return m_carets; }

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void setUpScintilla();

    // Keys.
    bool runCommand(const QKeyEvent &event);
    bool typeControlCharacter(const QKeyEvent &event);
    void typeKey(const QString &character);

    // Mouse.
    void openMenuAtCaret();
    void reportMouseButton(const QMouseEvent *event);
    void endRectangle(const QMouseEvent &event);
    QMouseEvent libraryEvent(const QMouseEvent &event) const;
    template <typename Handler>
    void withMouseEdits(Handler handler);

    TextViewOwner &m_owner;
    FurtherCarets m_carets;
    bool m_selectsRectangle = false; ///< the left button is down, for a rectangle
    ViewCommands m_commands;
    ViewTyping m_typing;
    bool m_textChanged = false;
    std::pair<long, long> m_drawnSelection; ///< caret and anchor
};

} // namespace ardiphon
