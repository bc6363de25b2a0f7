#include "documents/Commands.h"

namespace ardiphon {

namespace {

constexpr Command commands[] = {
    {"menuFileNuovaOrchestra", "&New File", "", "Ctrl+N"},
    {"menuFileApriOrchestra", "&Open File", "", "Ctrl+O"},
    {"menuFileSalvaOrchestra", "&Save File", "", "Ctrl+S"},
    {"menuFileSalvaOrchestraNome", "Save File &As ..."},
    {"menuFileEsci", "E&xit"},

    {"menuModificaUndo", "&Undo", "(Ctrl+Z)"},
    {"menuModificaRedo", "&Redo", "(Ctrl+Alt+Z)"},
    {"menuModificaTaglia", "Cu&t", "(Ctrl+X)"},
    {"menuModificaCopia", "&Copy", "(Ctrl+C)"},
    {"menuModificaIncolla", "&Paste", "(Ctrl+V)"},
    {"menuModificaSelezionaTutto", "Select &All", "(Ctrl+A)"},

    {"menuTemplateCSD", "&CSD Template"},

    {"menuCSound", "&CSound", "", "F3"},
    {"menuSndInfo", "SndInfo"},
    {"menuPlayer", "&Wave Player"},
    {"menuToolsBookmark", "Insert &Bookmark", "", "Ctrl+B"},
    {"menuToolsRemoveBookmark", "Remove B&ookmark"},
    {"menuToolsRemoveAllBookmark", "&Remove All Bookmarks"},

    {"menuWindowLineNumbers", "&Line numbers", "CTRL+1", "Ctrl+1", true},
    {"menuWindowBarraBook", "&Bookmarks", "CTRL+2", "Ctrl+2", true},
    {"menuWindowHelp", "&On-Line Help", "CTRL+3", "Ctrl+3", true},
    {"menuWindowToolbar", "&Toolbar", "CTRL+4", "Ctrl+4", true},
    {"menuWindowAllTools", "Hide/Show &All tools", "CTRL+5", "Ctrl+5"},
    {"menuWindowRestore", "&Restore all tools", "CTRL+6", "Ctrl+6"},
    {"menuWindowUp", "Window &Up"},
    {"menuWindowDown", "Window &Down"},
    {"menuWindowLeft", "Window L&eft"},
    {"menuWindowRight", "Window R&ight"},

    {"menuInfoArdiphonHelp", "&Ardiphon Help"},
    {"menuInfoCsoundHelp", "CSound &Help"},
    {"menuInfoCSoundAVHelp", "CSoundA&V Help"},
    {"menuInfoAbout", "&About"},

    {"menuPopupTaglia", "Cu&t"},
    {"menuPopupCopia", "&Copy"},
    {"menuPopupIncolla", "&Paste"},
    {"menuPopupUndo", "&Undo"},
    {"menuPopupRedo", "&Redo"},
    {"menuPopupSelezionaTutto", "Select &All"},
    {"menuPopupBookmark", "Insert Bookmark"},
    {"menuPopupRemoveBookmark", "Remove Bookmark"},
    {"menuPopupRemoveAllBookmarks", "Remove All Bookmarks"},
    {"menuPopupOpcodeHelp", "Opcode -> Help"},

    {"buttonDefaultDir", "Default Directory"},
    {"buttonCarattereMeno", "Smaller Font"},
    {"buttonCaratterePiu", "Larger Font"},
    {"buttonSplit", "Split CSD Window", "", "", true},
    {"buttonOpcodeHelp", "Opcode Help"},
    {"buttonFlagsHelp", "Command Line Flags"},
};

constexpr const char *fileMenu[] = {
    "menuFileNuovaOrchestra",
    "menuFileApriOrchestra",
    "menuFileSalvaOrchestra",
    "menuFileSalvaOrchestraNome",
    nullptr,
    "menuLastFile",
    nullptr,
    "menuFileEsci",
};

constexpr const char *editMenu[] = {
    "menuModificaUndo",  "menuModificaRedo",    nullptr, "menuModificaTaglia",
    "menuModificaCopia", "menuModificaIncolla", nullptr, "menuModificaSelezionaTutto",
};

constexpr const char *formatMenu[] = {"menuSize"};
constexpr const char *sizeMenu[] = {"menuFontSize"};
constexpr const char *headerMenu[] = {"menuHeaders", nullptr, "menuTemplateCSD"};

constexpr const char *toolsMenu[] = {
    "menuCSound",
    nullptr,
    "menuAnalisi",
    nullptr,
    "menuPlayer",
    nullptr,
    "menuToolsBookmark",
    "menuToolsRemoveBookmark",
    "menuToolsRemoveAllBookmark",
};

constexpr const char *analysisMenu[] = {"menuSndInfo"};

constexpr const char *windowMenu[] = {
    "menuWindowLineNumbers",
    "menuWindowBarraBook",
    "menuWindowHelp",
    "menuWindowToolbar",
    nullptr,
    "menuWindowAllTools",
    "menuWindowRestore",
    nullptr,
    "menuWindowUp",
    "menuWindowDown",
    "menuWindowLeft",
    "menuWindowRight",
};

constexpr const char *infoMenu[] = {
    "menuInfoArdiphonHelp", nullptr, "menuInfoCsoundHelp",
    "menuInfoCSoundAVHelp", nullptr, "menuInfoAbout",
};

constexpr const char *popupMenu[] = {
    "menuPopupTaglia",
    "menuPopupCopia",
    "menuPopupIncolla",
    nullptr,
    "menuPopupUndo",
    "menuPopupRedo",
    nullptr,
    "menuPopupSelezionaTutto",
    nullptr,
    "menuPopupBookmark",
    "menuPopupRemoveBookmark",
    "menuPopupRemoveAllBookmarks",
    nullptr,
    "menuPopupOpcodeHelp",
};

constexpr Menu menus[] = {
    {"menuFile", "&File", fileMenu},        {"menuModifica", "&Edit", editMenu},
    {"menuFormato", "F&ormat", formatMenu}, {"menuHeader", "&Header", headerMenu},
    {"menuTools", "&Tools", toolsMenu},     {"menuWindow", "&Window", windowMenu},
    {"menuInfo", "&Info", infoMenu},
};

constexpr Menu submenus[] = {
    {"menuSize", "&Size", sizeMenu},
    {"menuAnalisi", "CSound &Analysis", analysisMenu},
};

constexpr Menu popup = {"menuPopup", "", popupMenu};

constexpr ToolButton line = {nullptr, nullptr, nullptr, nullptr};

constexpr ToolButton toolbar[] = {
    {"buttonNuovoProgetto", "menuFileNuovaOrchestra", "new", "New File"},
    {"buttonApriProgetto", "menuFileApriOrchestra", "open", "Open File"},
    {"buttonSalvaProgetto", "menuFileSalvaOrchestra", "save", "Save File"},
    {"buttonSalvaProgettoNome", "menuFileSalvaOrchestraNome", "save-as", "Save File As"},
    {"buttonDefaultDir", "buttonDefaultDir", "default-folder", "Default Directory"},
    line,
    {"buttonUndo", "menuModificaUndo", "undo", "Undo"},
    {"buttonRedo", "menuModificaRedo", "redo", "Redo"},
    line,
    {"buttonCarattereMeno", "buttonCarattereMeno", "font-smaller", "Smaller Font"},
    {"buttonCaratterePiu", "buttonCaratterePiu", "font-larger", "Larger Font"},
    {"buttonSplit", "buttonSplit", "split", "Split CSD Window"},
    line,
    {"buttonCsound", "menuCSound", "compile", "CSound Console Compiler"},
    {"buttonPlayer", "menuPlayer", "player", "Wave Player"},
    line,
    {"buttonHelp", "menuInfoCsoundHelp", "help", "CSound Help"},
    {"buttonOpcodeHelp", "buttonOpcodeHelp", "opcode-help", "Opcode Help"},
    {"buttonDirectHelp", "menuInfoCSoundAVHelp", "direct-help", "CSoundAV Help"},
    {"buttonFlagsHelp", "buttonFlagsHelp", "flags-help", "Command Line Flags"},
};

} // namespace

std::span<const Command> csdCommands() { return commands; }
std::span<const Menu> csdMenus() { return menus; }
std::span<const Menu> csdSubmenus() { return submenus; }
const Menu &csdPopup() { return popup; }
std::span<const ToolButton> csdToolbar() { return toolbar; }

} // namespace ardiphon
