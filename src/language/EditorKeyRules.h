#pragma once

namespace ardiphon {

/// What a view asks its window to do when a key is pressed in it.
enum class ViewKey {
    PassOn,  ///< nothing: the key goes to the control
    Swallow, ///< nothing, and the key goes nowhere
    CloseWindow,
    Find,
    Replace,
    FindLine,
    Redo,
    KeywordHelp,
    HelpIndex,
    FirstInstrument,
    PreviousInstrument,
    NextInstrument,
    LastInstrument,
    FocusSecondView,
    FocusFirstView,
};

/// The view in which the key was pressed.
enum class ViewPosition { First, Second };

/// What the key with that code (a Qt::Key) and shift state (1 Shift, 2 Ctrl, 4 Alt, added up) means
/// in a view of the CSD window.
ViewKey csdViewKey(int keyCode, int shift, ViewPosition view);

/// The same for a view of the project's window, where the instruments have no keys.
ViewKey projectViewKey(int keyCode, int shift, ViewPosition view);

/// Whether the key goes to the control as well.
bool reachesControl(ViewKey key);

} // namespace ardiphon
