#include "language/editor/EditorKeys.h"

#include <Qsci/qsciscintillabase.h>

namespace ardiphon {

namespace {

using Sci = QsciScintillaBase;

struct KeyBinding
{
    int key = 0;
    Qt::KeyboardModifiers modifiers;
    unsigned command = 0;
};

constexpr Qt::KeyboardModifiers Plain = Qt::NoModifier;
constexpr Qt::KeyboardModifiers Shift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers Ctrl = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers CtrlShift = Ctrl | Shift;

const KeyBinding Bindings[] = {
    // The caret, and with Shift the selection.
    {Qt::Key_Left, Plain, Sci::SCI_CHARLEFT},
    {Qt::Key_Left, Shift, Sci::SCI_CHARLEFTEXTEND},
    {Qt::Key_Left, Ctrl, Sci::SCI_WORDLEFT},
    {Qt::Key_Left, CtrlShift, Sci::SCI_WORDLEFTEXTEND},
    {Qt::Key_Right, Plain, Sci::SCI_CHARRIGHT},
    {Qt::Key_Right, Shift, Sci::SCI_CHARRIGHTEXTEND},
    {Qt::Key_Right, Ctrl, Sci::SCI_WORDRIGHT},
    {Qt::Key_Right, CtrlShift, Sci::SCI_WORDRIGHTEXTEND},
    {Qt::Key_L, Ctrl, Sci::SCI_WORDLEFT},
    {Qt::Key_R, Ctrl, Sci::SCI_WORDRIGHT},
    {Qt::Key_Up, Plain, Sci::SCI_LINEUP},
    {Qt::Key_Up, Shift, Sci::SCI_LINEUPEXTEND},
    {Qt::Key_Up, Ctrl, Sci::SCI_PARAUP},
    {Qt::Key_Up, CtrlShift, Sci::SCI_PARAUPEXTEND},
    {Qt::Key_Down, Plain, Sci::SCI_LINEDOWN},
    {Qt::Key_Down, Shift, Sci::SCI_LINEDOWNEXTEND},
    {Qt::Key_Down, Ctrl, GoToParagraphEnd},
    {Qt::Key_Down, CtrlShift, ExtendToParagraphEnd},
    {Qt::Key_Home, Plain, Sci::SCI_VCHOME},
    {Qt::Key_Home, Shift, Sci::SCI_VCHOMEEXTEND},
    {Qt::Key_Home, Ctrl, Sci::SCI_DOCUMENTSTART},
    {Qt::Key_Home, CtrlShift, Sci::SCI_DOCUMENTSTARTEXTEND},
    {Qt::Key_End, Plain, Sci::SCI_LINEEND},
    {Qt::Key_End, Shift, Sci::SCI_LINEENDEXTEND},
    {Qt::Key_End, Ctrl, Sci::SCI_DOCUMENTEND},
    {Qt::Key_End, CtrlShift, Sci::SCI_DOCUMENTENDEXTEND},
    {Qt::Key_PageUp, Plain, Sci::SCI_PAGEUP},
    {Qt::Key_PageUp, Shift, Sci::SCI_PAGEUPEXTEND},
    {Qt::Key_PageUp, Ctrl, GoToVisibleStart},
    {Qt::Key_PageUp, CtrlShift, ExtendToVisibleStart},
    {Qt::Key_PageDown, Plain, Sci::SCI_PAGEDOWN},
    {Qt::Key_PageDown, Shift, Sci::SCI_PAGEDOWNEXTEND},
    {Qt::Key_PageDown, Ctrl, GoToVisibleEnd},
    {Qt::Key_PageDown, CtrlShift, ExtendToVisibleEnd},
    {Qt::Key_U, Ctrl, GoToVisibleStart},
    {Qt::Key_D, Ctrl, GoToVisibleEnd},
    {Qt::Key_A, Ctrl, Sci::SCI_SELECTALL},
    // Changes; plain Backspace, Delete, Enter and Tab are characters.
    {Qt::Key_Backspace, Ctrl, Sci::SCI_DELWORDLEFT},
    {Qt::Key_Delete, Ctrl, Sci::SCI_DELWORDRIGHT},
    {Qt::Key_Y, Ctrl, Sci::SCI_LINEDELETE},
    {Qt::Key_Z, Ctrl, Sci::SCI_UNDO},
    {Qt::Key_Z, CtrlShift, Sci::SCI_REDO},
    {Qt::Key_Insert, Plain, ToggleOvertype},
    // The clipboard.
    {Qt::Key_X, Ctrl, Sci::SCI_CUT},
    {Qt::Key_Delete, Shift, Sci::SCI_CUT},
    {Qt::Key_C, Ctrl, Sci::SCI_COPY},
    {Qt::Key_Insert, Ctrl, Sci::SCI_COPY},
    {Qt::Key_V, Ctrl, Sci::SCI_PASTE},
    {Qt::Key_Insert, Shift, Sci::SCI_PASTE},
};

constexpr Qt::KeyboardModifiers Held =
    Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

} // namespace

unsigned commandOfKey(int key, Qt::KeyboardModifiers modifiers)
{
    for (const KeyBinding &binding : Bindings) {
        if (binding.key == key && binding.modifiers == (modifiers & Held))
            return binding.command;
    }
    return NoCommand;
}

int controlCharacterOfKey(int key, Qt::KeyboardModifiers modifiers)
{
    const Qt::KeyboardModifiers held = modifiers & Held;
    if (held != Plain && held != Shift)
        return 0;
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return 9;
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Delete:
        return held == Plain ? 127 : 0;
    default:
        return 0;
    }
}

bool isModifierKey(int key)
{
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr ||
           key == Qt::Key_Super_L || key == Qt::Key_Super_R;
}

bool typesText(const QKeyEvent &event)
{
    constexpr Qt::KeyboardModifiers commands =
        Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = event.text();
    return !text.isEmpty() && !(event.modifiers() & commands) &&
           (text[0].isPrint() || text[0].isSurrogate());
}

int shiftState(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) |
           (modifiers & Qt::AltModifier ? 4 : 0);
}

} // namespace ardiphon
