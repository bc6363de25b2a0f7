#include "documents/EditorMenus.h"

namespace ardiphon {

namespace {

constexpr Command commands[] = {
    {"menuFileNuovaOrchestra", "&New File", "", "Ctrl+N"},
    {"menuFileApriOrchestra", "&Open File", "", "Ctrl+O"},
    {"menuFileSalvaOrchestra", "&Save File", "", "Ctrl+S"},
    {"menuFileSalvaOrchestraNome", "Save File &As ..."},
    {"menuFileImportaORCSCO", "Import ORC/SCO to CSD"},
    {"menuFileConvertToORCSCO", "Export CSD to ORC/SCO"},
    {"menuModificaTrova", "&Find", "(Ctrl+F)"},
    {"menuModificaSostituisci", "F&ind and Replace", "(Ctrl+H)"},
    {"menuModificaTrovaRiga", "Find &Line number", "(Ctrl+G)"},
    {"menuPopupLastPosition", "Go to last position"},
    {"menuFileStampaOrchestra", "&Print Document", "", "Ctrl+P"},
    {"menuTemplateCSD", "&CSD Template"},
    {"buttonSplit", "Split CSD Window", "", "", true},
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

constexpr const char *toolsMenu[] = {
    "menuCSound",
    "menuToolsWinsound",
    "menuCSoundAV",
    nullptr,
    "menuAnalisi",
    nullptr,
    "menuCommandLine",
    "menuPlayer",
    nullptr,
    "menuToolsBookmark",
    "menuToolsRemoveBookmark",
    "menuToolsRemoveAllBookmark",
};

constexpr Menu menus[] = {
    {"menuFile", "&File", fileMenu},        {"menuModifica", "&Edit", EditMenu},
    {"menuFormato", "F&ormat", FormatMenu}, {"menuHeader", "&Header", headerMenu},
    {"menuTools", "&Tools", toolsMenu},     {"menuWindow", "&Window", WindowMenu},
    {"menuInfo", "&Info", InfoMenu},
};

constexpr Menu submenus[] = {
    {"menuSize", "&Size", SizeMenu},
    {"menuAnalisi", "CSound &Analysis", AnalysisMenu},
};

constexpr Menu popup = {"menuPopup", "", PopupMenu};

constexpr ToolButton toolbar[] = {
    {"buttonNuovoProgetto", "menuFileNuovaOrchestra", "new", "New File"},
    {"buttonApriProgetto", "menuFileApriOrchestra", "open", "Open File"},
    {"buttonSalvaProgetto", "menuFileSalvaOrchestra", "save", "Save File"},
    {"buttonSalvaProgettoNome", "menuFileSalvaOrchestraNome", "save-as", "Save File As"},
    {"buttonDefaultDir", "buttonDefaultDir", "default-folder", "Default Directory"},
    {"buttonPlayer", "menuPlayer", "player", "Wave Player"},
    ToolbarLine,
    {"buttonTrova", "menuModificaTrova", "find", "Find"},
    {"buttonSostituisci", "menuModificaSostituisci", "replace", "Find and Replace"},
    {"buttonTrovaRiga", "menuModificaTrovaRiga", "find-line", "Find Line number"},
    ToolbarLine,
    {"buttonUndo", "menuModificaUndo", "undo", "Undo"},
    {"buttonRedo", "menuModificaRedo", "redo", "Redo"},
    ToolbarLine,
    {"buttonCarattereMeno", "buttonCarattereMeno", "font-smaller", "Smaller Font"},
    {"buttonCaratterePiu", "buttonCaratterePiu", "font-larger", "Larger Font"},
    {"buttonSplit", "buttonSplit", "split", "Split CSD Window"},
    ToolbarLine,
    {"buttonCsound", "menuCSound", "compile", "CSound Console Compiler"},
    {"buttonWinsound", "menuToolsWinsound", "winsound", "Winsound Compiler"},
    {"buttonDirectCsound", "menuCSoundAV", "csoundav", "CSoundAV"},
    AnalysisButton,
    ToolbarLine,
    {"buttonHelp", "menuInfoCsoundHelp", "help", "CSound Help"},
    {"buttonOpcodeHelp", "buttonOpcodeHelp", "opcode-help", "Opcode Help"},
    {"buttonDirectHelp", "menuInfoCSoundAVHelp", "direct-help", "CSoundAV Help"},
    {"buttonFlagsHelp", "buttonFlagsHelp", "flags-help", "Command Line Flags"},
    ToolbarLine,
    {"buttonCalculator", "buttonCalculator", "calculator", "Calculator"},
    {"buttonCommand", "menuCommandLine", "terminal", "Command Line"},
};

} // namespace

std::span<const Command> csdCommands() { return commands; }
std::span<const Menu> csdMenus() { return menus; }
std::span<const Menu> csdSubmenus() { return submenus; }
const Menu &csdPopup() { return popup; }
std::span<const ToolButton> csdToolbar() { return toolbar; }

} // namespace ardiphon
