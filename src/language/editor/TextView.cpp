#include "language/editor/TextView.h"

#include "language/editor/EditorKeys.h"
#include "language/editor/PlainAccessible.h"
#include "platform/Twips.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPointer>
#include <QScrollBar>
#include <QWheelEvent>

namespace ardiphon {

namespace {

int buttonNumber(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return 1;
    case Qt::RightButton:
        return 2;
    case Qt::MiddleButton:
        return 4;
    default:
        return 0;
    }
}

// A rectangle is selected with Shift, Alt and the left button: window managers take Alt alone.
bool beginsRectangle(const QMouseEvent &event)
{
    constexpr Qt::KeyboardModifiers held = Qt::ShiftModifier | Qt::AltModifier;
    return event.button() == Qt::LeftButton &&
           (event.modifiers() & (held | Qt::ControlModifier | Qt::MetaModifier)) == held;
}

// The character codes of Ctrl+X and Ctrl+V.
constexpr int MovedOut = 24;
constexpr int MovedIn = 22;

} // namespace

TextView::TextView(TextViewOwner &owner, QWidget *parent)
    : QsciScintillaBase(parent),
      m_owner(owner),
      m_carets(*this),
      m_commands(*this, owner),
      m_typing(*this, owner, m_carets, [this](const QString &character) { typeKey(character); })
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus); // the wheel takes no focus
    for (QScrollBar *bar : {verticalScrollBar(), horizontalScrollBar()})
        bar->installEventFilter(this);
    setUpScintilla();
    installPlainAccessible();
    // The library greys a selection when another program holds what the middle button pastes. What
    // listens inside it cannot be named, and nobody else listens.
    disconnect(QGuiApplication::clipboard(), &QClipboard::selectionChanged, nullptr, nullptr);
    connect(this, &TextView::SCEN_CHANGE, this, [this] { m_textChanged = true; });
    connect(this, &TextView::SCN_UPDATEUI, this, [this](int updated) {
        if (updated & (SC_UPDATE_CONTENT | SC_UPDATE_V_SCROLL | SC_UPDATE_H_SCROLL))
            m_owner.viewChanged();
        else
            m_owner.caretMoved();
    });
}

void TextView::setUpScintilla()
{
    SendScintilla(SCI_SETCODEPAGE, SC_CP_UTF8);
    SendScintilla(SCI_SETLEXER, SCLEX_CONTAINER);
    // What the library reports after a change it also reports to an accessible interface, for which
    // it counts the characters from the document's start each time. Before a change it does not.
    SendScintilla(SCI_SETMODEVENTMASK, SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE);
    SendScintilla(SCI_CLEARALLCMDKEYS);
    SendScintilla(SCI_USEPOPUP, 0);
    SendScintilla(SCI_SETMARGINS, 0);
    SendScintilla(SCI_SETMARGINLEFT, 0UL, 3L);
    SendScintilla(SCI_SETSCROLLWIDTH, 1);
    SendScintilla(SCI_SETSCROLLWIDTHTRACKING, true);
    SendScintilla(SCI_SETLAYOUTCACHE, SC_CACHE_PAGE);
    SendScintilla(SCI_SETMULTIPLESELECTION, false);
    SendScintilla(SCI_SETRECTANGULARSELECTIONMODIFIER, ulong(SCMOD_ALT));
    SendScintilla(SCI_SETVIRTUALSPACEOPTIONS, ulong(SCVS_RECTANGULARSELECTION));
    SendScintilla(SCI_SETTABINDENTS, true);
    SendScintilla(SCI_SETBACKSPACEUNINDENTS, false);
    SendScintilla(SCI_SETPASTECONVERTENDINGS, true);
}

void TextView::paintEvent(QPaintEvent *event)
{
    // The library does not report a selection that is set by a call.
    const std::pair selection(SendScintilla(SCI_GETCURRENTPOS), SendScintilla(SCI_GETANCHOR));
    if (std::exchange(m_drawnSelection, selection) != selection)
        m_owner.selectionMoved();
    const int height = std::max(1, int(SendScintilla(SCI_TEXTHEIGHT)));
    const int top = int(SendScintilla(SCI_GETFIRSTVISIBLELINE));
    const int first = top + event->rect().top() / height;
    const int last = top + event->rect().bottom() / height;
    m_owner.aboutToDraw(first, last);
    QsciScintillaBase::paintEvent(event);
    m_owner.drawn(first, last);
}

void TextView::resizeEvent(QResizeEvent *event)
{
    QsciScintillaBase::resizeEvent(event);
    m_owner.viewChanged();
}

// Keys. -------------------------------------------------------------------------------------------

// A key that the view itself handles is not a shortcut of the window, and a key with Alt is not the
// access key of a menu. Alt alone belongs to the menu bar.
bool TextView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if ((key->key() == Qt::Key_Escape && m_carets.areThere()) ||
            commandOfKey(key->key(), key->modifiers()) != NoCommand ||
            controlCharacterOfKey(key->key(), key->modifiers()) != 0 || typesText(*key) ||
            (key->modifiers() == Qt::AltModifier && !isModifierKey(key->key()))) {
            event->accept();
            return true;
        }
    }
    return QsciScintillaBase::event(event);
}

void TextView::keyPressEvent(QKeyEvent *event)
{
    EditorKey key{event->key(), shiftState(event->modifiers())};
    const QPointer<TextView> self(this);
    if (!isModifierKey(event->key()))
        m_owner.keyDown(key);
    event->accept();
    if (!self) // the key closed the window
        return;
    if (key.KeyCode == 0 || runCommand(*event) || typeControlCharacter(*event))
        return;
    if (event->key() == Qt::Key_Escape && m_carets.areThere())
        m_carets.drop();
    else if (typesText(*event))
        m_typing.typeText(event->text());
    else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        openMenuAtCaret();
    else
        event->ignore();
}

// Whether the key is a command that moves the caret or changes the text.
bool TextView::runCommand(const QKeyEvent &event)
{
    const unsigned command = commandOfKey(event.key(), event.modifiers());
    if (!m_commands.run(command))
        return false;
    m_carets.settle();
    m_owner.edited();
    return true;
}

bool TextView::typeControlCharacter(const QKeyEvent &event)
{
    const int character = controlCharacterOfKey(event.key(), event.modifiers());
    if (character == 0)
        return false;
    m_typing.typeControl(character,
                         event.key() == Qt::Key_Backtab || event.modifiers() & Qt::ShiftModifier);
    return true;
}

void TextView::typeKey(const QString &character)
{
    QKeyEvent typed(QEvent::KeyPress, 0, Qt::NoModifier, character);
    QsciScintillaBase::keyPressEvent(&typed);
}

void TextView::inputMethodEvent(QInputMethodEvent *event)
{
    const QString commit = event->commitString();
    if (commit.isEmpty()) {
        QsciScintillaBase::inputMethodEvent(event);
        m_owner.edited();
        return;
    }
    // First what was shown while composing is removed, then the text is inserted as if it were
    // typed.
    QInputMethodEvent composed;
    QsciScintillaBase::inputMethodEvent(&composed);
    m_owner.edited();
    m_typing.typeText(commit);
    QInputMethodEvent rest(event->preeditString(), event->attributes());
    if (!event->preeditString().isEmpty())
        QsciScintillaBase::inputMethodEvent(&rest);
    event->accept();
    m_owner.edited();
}

// Mouse. ------------------------------------------------------------------------------------------

// Runs a handler of the library for the mouse. When it changes the text, by a drag or by the middle
// button, that is reported like the key that does the same.
template <typename Handler>
void TextView::withMouseEdits(Handler handler)
{
    const long before = SendScintilla(SCI_GETLENGTH);
    m_textChanged = false;
    handler();
    m_owner.pointed();
    m_owner.edited();
    if (m_textChanged)
        m_owner.keyPress(SendScintilla(SCI_GETLENGTH) < before ? MovedOut : MovedIn);
}

void TextView::reportMouseButton(const QMouseEvent *event)
{
    const QPoint at = viewport()->mapTo(parentWidget(), event->position().toPoint());
    m_owner.mouseButton({buttonNumber(event->button()), shiftState(event->modifiers()),
                         toTwips(at.x()), toTwips(at.y())});
}

/// What the library is given. It selects a rectangle with Alt, or on some systems with Ctrl; and
/// with Ctrl a further caret, unless there can be only one.
QMouseEvent TextView::libraryEvent(const QMouseEvent &event) const
{
    return QMouseEvent(event.type(), event.position(), event.scenePosition(),
                       event.globalPosition(), event.button(), event.buttons(),
                       m_selectsRectangle ? Qt::AltModifier | Qt::ControlModifier
                                          : event.modifiers() & Qt::ShiftModifier);
}

void TextView::mousePressEvent(QMouseEvent *event)
{
    m_selectsRectangle = beginsRectangle(*event);
    QMouseEvent plain = libraryEvent(*event);
    reportMouseButton(event);
    if (event->button() == Qt::RightButton)
        return;
    if (m_selectsRectangle) {
        // On selected text the library would begin to drag that.
        SendScintilla(SCI_SETEMPTYSELECTION, SendScintilla(SCI_GETCURRENTPOS));
        m_carets.settle();
    }
    withMouseEdits([&] { QsciScintillaBase::mousePressEvent(&plain); });
    if (m_selectsRectangle)
        m_carets.begin();
}

void TextView::mouseDoubleClickEvent(QMouseEvent *event)
{
    QMouseEvent plain = libraryEvent(*event);
    reportMouseButton(event);
    if (event->button() == Qt::RightButton)
        return;
    QsciScintillaBase::mouseDoubleClickEvent(&plain);
    m_owner.pointed();
}

void TextView::mouseMoveEvent(QMouseEvent *event)
{
    QMouseEvent plain = libraryEvent(*event);
    withMouseEdits([&] { QsciScintillaBase::mouseMoveEvent(&plain); });
}

/// The library takes a move of a rectangle now and then only, and not where it ends.
void TextView::endRectangle(const QMouseEvent &event)
{
    QMouseEvent move(QEvent::MouseMove, event.position(), event.scenePosition(),
                     event.globalPosition(), Qt::NoButton, Qt::LeftButton, event.modifiers());
    for (int i = 0; i < 3; ++i)
        QsciScintillaBase::mouseMoveEvent(&move);
}

void TextView::mouseReleaseEvent(QMouseEvent *event)
{
    QMouseEvent plain = libraryEvent(*event);
    withMouseEdits([&] {
        if (m_selectsRectangle)
            endRectangle(*event);
        QsciScintillaBase::mouseReleaseEvent(&plain);
    });
    m_selectsRectangle = false;
    m_carets.settle();
    if (event->button() == Qt::LeftButton &&
        viewport()->rect().contains(event->position().toPoint()))
        m_owner.click();
}

// The menu belongs to the window, which opens it at the right button. The menu key is taken as that
// button at the caret.
void TextView::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard)
        openMenuAtCaret();
}

void TextView::openMenuAtCaret()
{
    SendScintilla(SCI_SCROLLCARET);
    const long caret = SendScintilla(SCI_GETCURRENTPOS);
    const QPoint inView(int(SendScintilla(SCI_POINTXFROMPOSITION, 0UL, caret)),
                        int(SendScintilla(SCI_POINTYFROMPOSITION, 0UL, caret)));
    const QPoint at = viewport()->mapTo(parentWidget(), inView);
    m_owner.mouseButton({2, 0, toTwips(at.x()), toTwips(at.y())});
}

// Over a scroll bar the wheel does what it does over the text.
bool TextView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel ||
        static_cast<const QWheelEvent *>(event)->angleDelta().y() == 0)
        return QsciScintillaBase::eventFilter(watched, event);
    event->ignore();
    return true;
}

// The window decides how many lines the wheel scrolls; sideways it scrolls as everywhere.
void TextView::wheelEvent(QWheelEvent *event)
{
    if (event->angleDelta().y() != 0)
        event->ignore();
    else
        QsciScintillaBase::wheelEvent(event);
}

// A file that is dropped is opened by the window.
void TextView::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls())
        event->ignore();
    else
        QsciScintillaBase::dragEnterEvent(event);
}

void TextView::dragMoveEvent(QDragMoveEvent *event)
{
    if (event->mimeData()->hasUrls())
        event->ignore();
    else
        QsciScintillaBase::dragMoveEvent(event);
}

void TextView::dropEvent(QDropEvent *event)
{
    if (event->mimeData()->hasUrls())
        event->ignore();
    else
        withMouseEdits([&] { QsciScintillaBase::dropEvent(event); });
}

} // namespace ardiphon
