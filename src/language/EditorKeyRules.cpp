#include "language/EditorKeyRules.h"

#include <Qt>

#include <optional>

namespace ardiphon {

namespace {

constexpr int Ctrl = 2;
constexpr int Alt = 4;

/// Whether Ctrl is held, with or without other keys, or Shift and Alt together.
bool opensSearch(int shift) { return shift == Ctrl || shift == 3 || shift >= 5; }

std::optional<ViewKey> searchKey(int keyCode)
{
    switch (keyCode) {
    case Qt::Key_F:
        return ViewKey::Find;
    case Qt::Key_H:
        return ViewKey::Replace;
    case Qt::Key_G:
        return ViewKey::FindLine;
    default:
        return std::nullopt;
    }
}

ViewKey functionKey(int keyCode, ViewPosition view)
{
    switch (keyCode) {
    case Qt::Key_F1:
        return ViewKey::KeywordHelp;
    case Qt::Key_F2:
        return ViewKey::HelpIndex;
    case Qt::Key_F5:
        return ViewKey::FirstInstrument;
    case Qt::Key_F6:
        return ViewKey::PreviousInstrument;
    case Qt::Key_F7:
        return ViewKey::NextInstrument;
    case Qt::Key_F8:
        return ViewKey::LastInstrument;
    case Qt::Key_F11:
        return view == ViewPosition::Second ? ViewKey::FocusFirstView : ViewKey::PassOn;
    case Qt::Key_F12:
        return view == ViewPosition::First ? ViewKey::FocusSecondView : ViewKey::PassOn;
    default:
        return ViewKey::PassOn;
    }
}

} // namespace

ViewKey csdViewKey(int keyCode, int shift, ViewPosition view)
{
    if (shift == Alt)
        return keyCode == Qt::Key_F4 ? ViewKey::CloseWindow : ViewKey::Swallow;
    if (opensSearch(shift))
        if (const auto search = searchKey(keyCode))
            return *search;
    if (shift == (Ctrl | Alt) && keyCode == Qt::Key_Z)
        return ViewKey::Redo;
    return functionKey(keyCode, view);
}

ViewKey projectViewKey(int keyCode, int shift, ViewPosition view)
{
    const ViewKey key = csdViewKey(keyCode, shift, view);
    switch (key) {
    case ViewKey::FirstInstrument:
    case ViewKey::PreviousInstrument:
    case ViewKey::NextInstrument:
    case ViewKey::LastInstrument:
        return ViewKey::PassOn;
    default:
        return key;
    }
}

bool reachesControl(ViewKey key)
{
    switch (key) {
    case ViewKey::Swallow:
    case ViewKey::Find:
    case ViewKey::Replace:
    case ViewKey::FindLine:
    case ViewKey::Redo:
        return false;
    default:
        return true;
    }
}

} // namespace ardiphon
