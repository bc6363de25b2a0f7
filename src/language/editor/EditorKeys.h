#pragma once

#include <QKeyEvent>

namespace ardiphon {

/// Commands of a key besides Scintilla's own, whose numbers are above these.
enum EditorCommand : unsigned {
    NoCommand,
    GoToVisibleStart,
    GoToVisibleEnd,
    ExtendToVisibleStart,
    ExtendToVisibleEnd,
    GoToParagraphEnd,
    ExtendToParagraphEnd,
    ToggleOvertype,
};

/// The command of a key with Shift, Ctrl and Alt as held: one of the above or of Scintilla's.
unsigned commandOfKey(int key, Qt::KeyboardModifiers modifiers);

/// The character that a key types as such: 13 Enter, 9 Tab, 8 Backspace, 127 Delete; else 0.
int controlCharacterOfKey(int key, Qt::KeyboardModifiers modifiers);

/// Whether \a key is Shift, Ctrl or another one that only changes what other keys do.
bool isModifierKey(int key);

/// Whether the key puts its text into the document.
bool typesText(const QKeyEvent &event);

/// 1 Shift, 2 Ctrl, 4 Alt, added up.
int shiftState(Qt::KeyboardModifiers modifiers);

} // namespace ardiphon
