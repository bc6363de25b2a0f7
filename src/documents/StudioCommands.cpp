#include "documents/Commands.h"

namespace ardiphon {

namespace {

constexpr Command commands[] = {
    {"menuStudioOutline", "&Outline", true},
    {"menuStudioGo", "&Go to Name ..."},
    {"menuStudioInstrument", "&Instrument or Its Notes"},
    {"menuStudioFold", "&Fold or Unfold"},
    {"menuStudioFoldAll", "Fold &All"},
    {"menuStudioUnfoldAll", "&Unfold All"},
    {"menuStudioRename", "Re&name ..."},
    {"menuStudioCheck", "&Check While Typing", true},
    {"menuStudioProblems", "&Problems", true},
    {"menuStudioNextProblem", "Ne&xt Problem"},
    {"menuStudioPreviousProblem", "Pre&vious Problem"},
    {"menuStudioComplete", "Co&mplete"},
    {"menuStudioComment", "&Comment or Uncomment"},
    {"menuStudioDuplicate", "&Duplicate"},
    {"menuStudioMoveUp", "Move &Up"},
    {"menuStudioMoveDown", "Move D&own"},
    {"menuStudioDeleteToEnd", "Delete to Line's &End"},
    {"menuStudioJoin", "&Join Lines"},
    {"menuStudioUpperCase", "U&pper Case"},
    {"menuStudioLowerCase", "&Lower Case"},
    {"menuStudioNextOccurrence", "Select &Next Occurrence"},
    {"menuStudioReindent", "Re-&indent"},
};

constexpr Shortcut shortcuts[] = {
    {"menuStudioOutline", "Ctrl+Shift+L"},
    {"menuStudioGo", "Ctrl+Shift+O"},
    {"menuStudioInstrument", "Ctrl+Shift+I"},
    {"menuStudioFold", "Ctrl+Shift+K"},
    {"menuStudioRename", "Ctrl+Shift+R"},
    {"menuStudioProblems", "Ctrl+Shift+M"},
    {"menuStudioNextProblem", "Ctrl+."},
    {"menuStudioPreviousProblem", "Ctrl+,"},
    {"menuStudioComplete", "Ctrl+Space"},
    {"menuStudioComment", "Ctrl+/"},
    {"menuStudioDuplicate", "Ctrl+Shift+D"},
    // With the arrows the editor selects to the next paragraph.
    {"menuStudioMoveUp", "Ctrl+Shift+A"},
    {"menuStudioMoveDown", "Ctrl+Shift+B"},
    {"menuStudioNextOccurrence", "Ctrl+Shift+N"},
};

} // namespace

std::span<const Command> studioCommands() { return commands; }
std::span<const Shortcut> studioShortcuts() { return shortcuts; }

} // namespace ardiphon
