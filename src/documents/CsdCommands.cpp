#include "documents/EditorMenus.h"

namespace ardiphon {

namespace {

constexpr Command commands[] = {
    {"menuFileNuovaOrchestra", "&New File"},
    {"menuFileApriOrchestra", "&Open File"},
    {"menuFileSalvaOrchestra", "&Save File"},
    {"menuFileSalvaOrchestraNome", "Save File &As ..."},
    {"menuFileImportaORCSCO", "Import ORC/SCO to CSD"},
    {"menuFileConvertToORCSCO", "Export CSD to ORC/SCO"},
    {"menuModificaTrova", "&Find"},
    {"menuModificaSostituisci", "F&ind and Replace"},
    {"menuModificaTrovaRiga", "Find &Line number"},
    {"menuPopupLastPosition", "Go to last position"},
    {"menuFileStampaOrchestra", "&Print Document"},
    {"menuTemplateCSD", "&CSD Template"},
    {"buttonSplit", "Split CSD Window", true},
    {"buttonFlagsHelp", "Command Line Flags"},
};

constexpr const char *fileMenu[] = {
    "menuFileNuovaOrchestra",
    "menuFileApriOrchestra",
    "menuFileSalvaOrchestra",
    "menuFileSalvaOrchestraNome",
    nullptr,
    "menuFileImportaORCSCO",
    "menuFileConvertToORCSCO",
    nullptr,
    "menuFileMargineStampa",
    "menuFileStampaOrchestra",
    nullptr,
    "menuFileProprieta",
    "menuFilePreferenze",
    nullptr,
    "menuLastFile",
    nullptr,
    "menuFileEsci",
};

constexpr const char *headerMenu[] = {"menuHeaders", nullptr, "menuTemplateCSD"};

constexpr Menu menus[] = {
    {"menuFile", "&File", fileMenu},        {"menuModifica", "&Edit", EditMenu},
    {"menuFormato", "F&ormat", FormatMenu}, {"menuHeader", "&Header", headerMenu},
    {"menuTools", "&Tools", ToolsMenu},     {"menuStudio", "&Studio", StudioMenu},
    {"menuWindow", "&Window", WindowMenu},  {"menuInfo", "&Info", InfoMenu},
};

constexpr ToolButton toolbar[] = {
    {"buttonNuovoProgetto", "menuFileNuovaOrchestra", "new", "New File"},
    {"buttonApriProgetto", "menuFileApriOrchestra", "open", "Open File"},
    {"buttonSalvaProgetto", "menuFileSalvaOrchestra", "save", "Save File"},
    {"buttonSalvaProgettoNome", "menuFileSalvaOrchestraNome", "save-as", "Save File As"},
    FolderButton,
    {"buttonPlayer", "menuPlayer", "player", "Wave Player"},
    ToolbarLine,
    {"buttonTrova", "menuModificaTrova", "find", "Find"},
    {"buttonSostituisci", "menuModificaSostituisci", "replace", "Find and Replace"},
    {"buttonTrovaRiga", "menuModificaTrovaRiga", "find-line", "Find Line number"},
    ToolbarLine,
    UndoButton,
    RedoButton,
    ToolbarLine,
    SmallerFontButton,
    LargerFontButton,
    {"buttonSplit", "buttonSplit", "split", "Split CSD Window"},
    ToolbarLine,
    CompileButton,
    WinsoundButton,
    CSoundAVButton,
    AnalysisButton,
    ToolbarLine,
    HelpButton,
    OpcodeHelpButton,
    CSoundAVHelpButton,
    {"buttonFlagsHelp", "buttonFlagsHelp", "flags-help", "Command Line Flags"},
    ToolbarLine,
    CalculatorButton,
    TerminalButton,
};

} // namespace

std::span<const Command> csdCommands() { return commands; }
std::span<const Menu> csdMenus() { return menus; }
std::span<const ToolButton> csdToolbar() { return toolbar; }

} // namespace ardiphon
