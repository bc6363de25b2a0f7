// Every key of the editor windows that does more than type, or move by a letter or a line.

#include "documents/Commands.h"

namespace ardiphon {

namespace {

constexpr auto View = KeyTaker::View;
constexpr auto Editor = KeyTaker::Editor;

constexpr Shortcut both[] = {
    {"menuCSound", "F3"},
    {"menuCSoundAV", "F4"},
    {"menuToolsBookmark", "Ctrl+B"},
    {"menuWindowLineNumbers", "Ctrl+1", "CTRL+1"},
    {"menuWindowBarraBook", "Ctrl+2", "CTRL+2"},
    {"menuWindowHelp", "Ctrl+3", "CTRL+3"},
    {"menuWindowToolbar", "Ctrl+4", "CTRL+4"},
    {"menuWindowAllTools", "Ctrl+5", "CTRL+5"},
    {"menuWindowRestore", "Ctrl+6", "CTRL+6"},

    {"", "F1", "", View},
    {"", "F2", "", View},
    {"", "F11", "", View},
    {"", "F12", "", View},
    {"", "Alt+F4", "", View},
    {"menuModificaRedo", "Ctrl+Alt+Z", "(Ctrl+Alt+Z)", View},

    {"menuModificaUndo", "Ctrl+Z", "(Ctrl+Z)", Editor},
    {"menuModificaTaglia", "Ctrl+X", "(Ctrl+X)", Editor},
    {"menuModificaCopia", "Ctrl+C", "(Ctrl+C)", Editor},
    {"menuModificaIncolla", "Ctrl+V", "(Ctrl+V)", Editor},
    {"menuModificaSelezionaTutto", "Ctrl+A", "(Ctrl+A)", Editor},
    {"", "Ctrl+Left", "", Editor},
    {"", "Ctrl+Right", "", Editor},
    {"", "Ctrl+Up", "", Editor},
    {"", "Ctrl+Down", "", Editor},
    {"", "Ctrl+Home", "", Editor},
    {"", "Ctrl+End", "", Editor},
    {"", "Ctrl+PgUp", "", Editor},
    {"", "Ctrl+PgDown", "", Editor},
    {"", "Ctrl+Y", "", Editor},
    {"", "Ctrl+R", "", Editor},
    {"", "Ctrl+L", "", Editor},
    {"", "Ctrl+U", "", Editor},
    {"", "Ctrl+D", "", Editor},
};

constexpr Shortcut csd[] = {
    {"menuFileNuovaOrchestra", "Ctrl+N"},
    {"menuFileApriOrchestra", "Ctrl+O"},
    {"menuFileSalvaOrchestra", "Ctrl+S"},
    {"menuFileStampaOrchestra", "Ctrl+P"},
    {"menuModificaTrova", "Ctrl+F", "(Ctrl+F)", View},
    {"menuModificaSostituisci", "Ctrl+H", "(Ctrl+H)", View},
    {"menuModificaTrovaRiga", "Ctrl+G", "(Ctrl+G)", View},
    {"", "F5", "", View},
    {"", "F6", "", View},
    {"", "F7", "", View},
    {"", "F8", "", View},
};

constexpr Shortcut project[] = {
    {"menuFileNuovoProgetto", "Ctrl+N"},
    {"menuFileApriProgetto", "Ctrl+O"},
    {"menuFileSalvaProgetto", "Ctrl+S"},
    {"menuFileStampaProgetto", "Ctrl+P"},
    {"menuModificaTrova", "Ctrl+F", "(CTRL+F)", View},
    {"menuModificaSostituisci", "Ctrl+H", "(CTRL+H)", View},
    {"menuModificaTrovaRiga", "Ctrl+G", "(CTRL+G)", View},
    {"menuVisualizzaOrizzontale", "F5"},
    {"menuVisualizzaVerticale", "F6"},
    {"menuVisualizzaOrchestra", "F7"},
    {"menuVisualizzaScore", "F8"},
    {"menuVisualizzaReset", "F9"},
    {"menuWindowInstrument", "Ctrl+7", "CTRL+7"},
};

} // namespace

std::span<const Shortcut> editorShortcuts() { return both; }
std::span<const Shortcut> csdShortcuts() { return csd; }
std::span<const Shortcut> projectShortcuts() { return project; }

} // namespace ardiphon
