// How the view answers keys and input methods.

#include "language/editor/EditorKeys.h"
#include "language/editor/TextView.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPointer>

namespace ardiphon {

// A key that the view itself handles is not a shortcut of the window, and a key with Alt is not the
// access key of a menu. Alt alone belongs to the menu bar.
bool TextView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (commandOfKey(key->key(), key->modifiers()) != NoCommand ||
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
    if (key.KeyCode == 0 || runCommand(event->key(), event->modifiers()) ||
        typeControlCharacter(event))
        return;
    if (typesText(*event))
        typeText(event->text());
    else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        openMenuAtCaret();
    else
        event->ignore();
}

bool TextView::runCommand(int key, Qt::KeyboardModifiers modifiers)
{
    const unsigned command = commandOfKey(key, modifiers);
    switch (command) {
    case NoCommand:
        return false;
    case GoToVisibleStart:
    case ExtendToVisibleStart:
        goToVisible(false, command == ExtendToVisibleStart);
        break;
    case GoToVisibleEnd:
    case ExtendToVisibleEnd:
        goToVisible(true, command == ExtendToVisibleEnd);
        break;
    case GoToParagraphEnd:
    case ExtendToParagraphEnd:
        goToParagraphEnd(command == ExtendToParagraphEnd);
        break;
    case ToggleOvertype:
        SendScintilla(SCI_SETOVERTYPE, !SendScintilla(SCI_GETOVERTYPE));
        break;
    default:
        m_owner.run(command);
    }
    m_owner.edited();
    return true;
}

bool TextView::typeControlCharacter(const QKeyEvent *event)
{
    const int character = controlCharacterOfKey(event->key(), event->modifiers());
    if (character == 0)
        return false;
    if (m_owner.keyPress(character) != 0)
        typeControl(character,
                    event->key() == Qt::Key_Backtab || event->modifiers() & Qt::ShiftModifier);
    return true;
}

void TextView::typeControl(int character, bool back)
{
    switch (character) {
    case 13:
        insertNewLine();
        break;
    case 9:
        SendScintilla(back ? SCI_BACKTAB : SCI_TAB);
        break;
    case 8:
        SendScintilla(SCI_DELETEBACK);
        break;
    default:
        SendScintilla(SCI_CLEAR);
    }
    m_owner.edited();
}

// Moves to the start of the first visible line, or to the end of the last line that is wholly
// visible.
void TextView::goToVisible(bool end, bool extend)
{
    const long top = SendScintilla(SCI_GETFIRSTVISIBLELINE);
    const long rows = SendScintilla(SCI_VISIBLEFROMDOCLINE, ulong(SendScintilla(SCI_GETLINECOUNT)));
    const long row = end ? std::min(top + SendScintilla(SCI_LINESONSCREEN), rows) - 1 : top;
    const auto line = ulong(SendScintilla(SCI_DOCLINEFROMVISIBLE, ulong(row)));
    moveCaret(SendScintilla(end ? SCI_GETLINEENDPOSITION : SCI_POSITIONFROMLINE, line), extend);
}

// Blank lines separate the paragraphs; those that end in hidden lines are skipped. From the end of
// a paragraph this goes to the end of the next; the library's command would go to the beginning of
// the next.
void TextView::goToParagraphEnd(bool extend)
{
    const long last = SendScintilla(SCI_GETLINECOUNT) - 1;
    const long caret = SendScintilla(SCI_GETCURRENTPOS);
    long line = SendScintilla(SCI_LINEFROMPOSITION, ulong(caret));
    if (caret == SendScintilla(SCI_GETLINEENDPOSITION, ulong(line)) && line < last)
        ++line;
    while (line < last && isBlankLine(line))
        ++line;
    while (line < last && (!isBlankLine(line + 1) || isBlankLine(line) ||
                           !SendScintilla(SCI_GETLINEVISIBLE, ulong(line))))
        ++line;
    moveCaret(SendScintilla(SCI_GETLINEENDPOSITION, ulong(line)), extend);
}

bool TextView::isBlankLine(long line) const
{
    return SendScintilla(SCI_GETLINEINDENTPOSITION, ulong(line)) ==
           SendScintilla(SCI_GETLINEENDPOSITION, ulong(line));
}

void TextView::moveCaret(long caret, bool extend)
{
    const long anchor = extend ? SendScintilla(SCI_GETANCHOR) : caret;
    SendScintilla(SCI_SETSEL, ulong(anchor), caret);
    SendScintilla(SCI_CHOOSECARETX);
}

void TextView::insertNewLine()
{
    static constexpr const char *ends[] = {"\r\n", "\r", "\n"};
    QByteArray text = ends[SendScintilla(SCI_GETEOLMODE)];
    const long start = SendScintilla(SCI_GETSELECTIONSTART);
    const long line = SendScintilla(SCI_LINEFROMPOSITION, ulong(start));
    long at = SendScintilla(SCI_POSITIONFROMLINE, ulong(line));
    for (; m_autoIndent && at < start; ++at) {
        const char c = char(SendScintilla(SCI_GETCHARAT, ulong(at)));
        if (c != ' ' && c != '\t')
            break;
        text.append(c);
    }
    // A CR and an LF that meet are one line end, so there would be no new line.
    const long end = SendScintilla(SCI_GETSELECTIONEND);
    if (text == "\r" && SendScintilla(SCI_GETCHARAT, ulong(end)) == '\n')
        text = "\r\n";
    else if (text[0] == '\n' && start > 0 && SendScintilla(SCI_GETCHARAT, ulong(start - 1)) == '\r')
        text.prepend('\r');
    SendScintilla(SCI_REPLACESEL, text.constData());
    SendScintilla(SCI_SCROLLCARET);
    SendScintilla(SCI_CHOOSECARETX);
}

// One character at a time: each is reported, then typed, before the next one is reported.
void TextView::typeText(const QString &text)
{
    for (const char32_t code : text.toUcs4()) {
        const long caret = SendScintilla(SCI_GETCURRENTPOS);
        const bool overwrites = selectCharacterToOverwrite();
        const int typed = m_owner.keyPress(int(code));
        if (typed == 0 && overwrites)
            SendScintilla(SCI_SETEMPTYSELECTION, caret);
        else if (typed != 0)
            typeCharacter(char32_t(typed));
    }
}

// The library joins what it is given as a key to one step of history, but refuses what needs two
// QChars.
void TextView::typeCharacter(char32_t code)
{
    const QString character = QString::fromUcs4(&code, 1);
    if (code > 0xFFFF) {
        SendScintilla(SCI_REPLACESEL, character.toUtf8().constData());
    } else {
        QKeyEvent typed(QEvent::KeyPress, 0, Qt::NoModifier, character);
        QsciScintillaBase::keyPressEvent(&typed);
    }
    m_owner.edited();
}

// Overwriting replaces a selected character, so that a handler of KeyPress finds in the selection
// what will be replaced.
bool TextView::selectCharacterToOverwrite()
{
    const long caret = SendScintilla(SCI_GETCURRENTPOS);
    if (!SendScintilla(SCI_GETOVERTYPE) || SendScintilla(SCI_GETSELECTIONEMPTY) == 0)
        return false;
    const long line = SendScintilla(SCI_LINEFROMPOSITION, ulong(caret));
    if (caret >= SendScintilla(SCI_GETLINEENDPOSITION, ulong(line)))
        return false;
    SendScintilla(SCI_SETSEL, ulong(caret), SendScintilla(SCI_POSITIONAFTER, caret));
    return true;
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
    typeText(commit);
    QInputMethodEvent rest(event->preeditString(), event->attributes());
    if (!event->preeditString().isEmpty())
        QsciScintillaBase::inputMethodEvent(&rest);
    event->accept();
    m_owner.edited();
}

} // namespace ardiphon
