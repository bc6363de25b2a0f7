#include "documents/EditorMenus.h"

namespace ardiphon {

namespace {

constexpr Command commands[] = {
    {"menuFileNuovoProgetto", "&New Project"},
    {"menuFileApriProgetto", "&Open Project"},
    {"menuFileSalvaProgetto", "&Save Project"},
    {"menuFileSalvaProgettoNome", "Save Project &As ..."},
    {"menuFileNuovaOrchestra", "New Orchestra"},
    {"menuFileApriOrchestra", "Open Ochestra"},
    {"menuFileSalvaOrchestra", "Save Orchestra"},
    {"menuFileSalvaOrchestraNome", "Save Orchestra As ..."},
    {"menuFileNuovaScore", "New Score"},
    {"menuFileApriScore", "Open Score"},
    {"menuFileSalvaScore", "Save Score"},
    {"menuFileSalvaScoreNome", "Save Score As ..."},
    {"menuFileImportaCSD", "Import CSD to ORC/SCO"},
    {"menuFileConvertToCSD", "Export ORC/SCO to CSD"},
    {"menuModificaTrova", "&Find"},
    {"menuModificaSostituisci", "F&ind and Replace"},
    {"menuModificaTrovaRiga", "Find &Line number"},
    {"menuFileStampaProgetto", "&Print Project"},
    {"menuFileStampaOrchestra", "Print Orchestra"},
    {"menuFileStampaScore", "Print Score"},

    {"menuVisualizzaOrizzontale", "Arrange windows &horizontally", true},
    {"menuVisualizzaVerticale", "Arrange windows &vertically", true},
    {"menuVisualizzaOrchestra", "&Orchestra view", true},
    {"menuVisualizzaScore", "&Score view", true},
    {"menuVisualizzaReset", "&Reset windows to normal position"},
    {"menuWindowInstrument", "I&nstrument search", true},

    {"buttonTrovaOrchestra", "Find (Orchestra)"},
    {"buttonSostituisciOrchestra", "Find and Replace (Orchestra)"},
    {"buttonTrovaRigaOrchestra", "Find Line number (Orchestra)"},
    {"buttonTrovaScore", "Find (Score)"},
    {"buttonSostituisciScore", "Find and Replace (Score)"},
    {"buttonTrovaRigaScore", "Find Line number (Score)"},
};

constexpr const char *fileMenu[] = {
    "menuFileNuovoProgetto",
    "menuFileApriProgetto",
    "menuFileSalvaProgetto",
    "menuFileSalvaProgettoNome",
    nullptr,
    "menuFileNuovaOrchestra",
    "menuFileApriOrchestra",
    "menuFileSalvaOrchestra",
    "menuFileSalvaOrchestraNome",
    nullptr,
    "menuFileNuovaScore",
    "menuFileApriScore",
    "menuFileSalvaScore",
    "menuFileSalvaScoreNome",
    nullptr,
    "menuFileImportaCSD",
    "menuFileConvertToCSD",
    nullptr,
    "menuFileMargineStampa",
    "menuFileStampaProgetto",
    "menuFileStampaOrchestra",
    "menuFileStampaScore",
    nullptr,
    "menuFileProprieta",
    "menuFilePreferenze",
    nullptr,
    "menuLastFile",
    nullptr,
    "menuFileEsci",
};

constexpr const char *headerMenu[] = {"menuHeaders"};

constexpr const char *viewMenu[] = {
    "menuVisualizzaOrizzontale",
    "menuVisualizzaVerticale",
    "menuVisualizzaOrchestra",
    "menuVisualizzaScore",
    nullptr,
    "menuVisualizzaReset",
};

constexpr Menu menus[] = {
    {"menuFile", "&File", fileMenu},        {"menuModifica", "&Edit", EditMenu},
    {"menuFormato", "F&ormat", FormatMenu}, {"menuHeader", "&Header", headerMenu},
    {"menuVisualizza", "&View", viewMenu},  {"menuTools", "&Tools", ToolsMenu},
    {"menuStudio", "&Studio", StudioMenu},  {"menuWindow", "&Window", WindowMenu},
    {"menuInfo", "&Info", InfoMenu},
};

constexpr ToolButton toolbar[] = {
    {"buttonNuovoProgetto", "menuFileNuovoProgetto", "new", "New Project"},
    {"buttonApriProgetto", "menuFileApriProgetto", "open", "Open Project"},
    {"buttonSalvaProgetto", "menuFileSalvaProgetto", "save", "Save Project"},
    {"buttonSalvaProgettoNome", "menuFileSalvaProgettoNome", "save-as", "Save Project As"},
    FolderButton,
    ToolbarLine,
    UndoButton,
    RedoButton,
    ToolbarLine,
    {"buttonOrizzontale", "menuVisualizzaOrizzontale", "arrange-horizontal",
     "Arrange windows horizontally"},
    {"buttonVerticale", "menuVisualizzaVerticale", "arrange-vertical",
     "Arrange windows vertically"},
    {"buttonOrchestra", "menuVisualizzaOrchestra", "orchestra-only", "Orchestra view"},
    {"buttonScore", "menuVisualizzaScore", "score-only", "Score view"},
    {"buttonWindowRefresh", "menuVisualizzaReset", "arrange-reset",
     "Reset windows to normal position"},
    ToolbarLine,
    SmallerFontButton,
    LargerFontButton,
    ToolbarLine,
    CompileButton,
    WinsoundButton,
    CSoundAVButton,
    AnalysisButton,
    ToolbarLine,
    HelpButton,
    OpcodeHelpButton,
    CSoundAVHelpButton,
    ToolbarLine,
    CalculatorButton,
    TerminalButton,
};

constexpr ToolButton orchestraButtons[] = {
    {"buttonNuovaOrchestra", "menuFileNuovaOrchestra", "new", "New Orchestra"},
    {"buttonApriOrchestra", "menuFileApriOrchestra", "open", "Open Orchestra"},
    {"buttonSalvaOrchestra", "menuFileSalvaOrchestra", "save", "Save Orchestra"},
    {"buttonSalvaOrchestraNome", "menuFileSalvaOrchestraNome", "save-as", "Save Orchestra As"},
    {"buttonPrintOrchestra", "menuFileStampaOrchestra", "print", "Print Orchestra"},
    {"buttonTrovaOrchestra", "buttonTrovaOrchestra", "find", "Find (Orchestra)"},
    {"buttonSostituisciOrchestra", "buttonSostituisciOrchestra", "replace",
     "Find and Replace (Orchestra)"},
    {"buttonTrovaRigaOrchestra", "buttonTrovaRigaOrchestra", "find-line",
     "Find Line number (Orchestra)"},
    {"buttonBookmarks", "menuWindowBarraBook", "bookmark", "Bookmarks"},
    {"buttonInstrument", "menuWindowInstrument", "find-instrument", "Instrument search"},
};

constexpr ToolButton scoreButtons[] = {
    {"buttonNuovaScore", "menuFileNuovaScore", "new", "New Score"},
    {"buttonApriScore", "menuFileApriScore", "open", "Open Score"},
    {"buttonSalvaScore", "menuFileSalvaScore", "save", "Save Score"},
    {"buttonSalvaScoreNome", "menuFileSalvaScoreNome", "save-as", "Save Score As"},
    {"buttonTrovaScore", "buttonTrovaScore", "find", "Find (Score)"},
    {"buttonSostituisciScore", "buttonSostituisciScore", "replace", "Find and Replace (Score)"},
    {"buttonTrovaRigaScore", "buttonTrovaRigaScore", "find-line", "Find Line number (Score)"},
    {"buttonPrintScore", "menuFileStampaScore", "print", "Print Score"},
    {"buttonBookmarks", "menuWindowBarraBook", "bookmark", "Bookmarks"},
};

} // namespace

std::span<const Command> projectCommands() { return commands; }
std::span<const Menu> projectMenus() { return menus; }
std::span<const ToolButton> projectToolbar() { return toolbar; }
std::span<const ToolButton> orchestraToolbar() { return orchestraButtons; }
std::span<const ToolButton> scoreToolbar() { return scoreButtons; }

} // namespace ardiphon
