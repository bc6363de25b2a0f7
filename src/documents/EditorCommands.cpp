#include "documents/EditorMenus.h"

namespace ardiphon {

namespace {

constexpr Command commands[] = {
    {"menuFileMargineStampa", "Print &Margins Setup"},
    {"menuFileProprieta", "File Prope&rties"},
    {"menuFilePreferenze", "Se&ttings"},
    {"menuFileEsci", "E&xit"},

    {"menuModificaUndo", "&Undo"},
    {"menuModificaRedo", "&Redo"},
    {"menuModificaTaglia", "Cu&t"},
    {"menuModificaCopia", "&Copy"},
    {"menuModificaIncolla", "&Paste"},
    {"menuModificaSelezionaTutto", "Select &All"},

    {"menuCSound", "&CSound"},
    {"menuToolsWinsound", "W&insound"},
    {"menuCSoundAV", "CSoundA&V"},
    {"menuFormatoTipocarattere", "Select &Font"},
    {"menuLista", "&Reset Default Font"},

    {"menuHetro", "Hetro"},
    {"menuLPAnal", "LPAnal"},
    {"menuPVAnal", "PVAnal"},
    {"menuPVLook", "PVLook"},
    {"menuCVAnal", "CVAnal"},
    {"menuDNoise", "DNoise"},
    {"menuSndInfo", "SndInfo"},
    {"menuCommandLine", "Command &Line"},
    {"menuPlayer", "&Wave Player"},
    {"menuToolsBookmark", "Insert &Bookmark"},
    {"menuToolsRemoveBookmark", "Remove B&ookmark"},
    {"menuToolsRemoveAllBookmark", "&Remove All Bookmarks"},

    {"menuWindowLineNumbers", "&Line numbers", true},
    {"menuWindowBarraBook", "&Bookmarks", true},
    {"menuWindowHelp", "&On-Line Help", true},
    {"menuWindowToolbar", "&Toolbar", true},
    {"menuWindowAllTools", "Hide/Show &All tools"},
    {"menuWindowRestore", "&Restore all tools"},
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
    {"menuPopupDefinition", "Go to definition"},
    {"menuPopupReference", "Go to reference"},
    {"menuPopupOpcodeHelp", "Opcode -> Help"},

    {"buttonDefaultDir", "Default Directory"},
    {"buttonCarattereMeno", "Smaller Font"},
    {"buttonCaratterePiu", "Larger Font"},
    {"buttonOpcodeHelp", "Opcode Help"},
    {"buttonAnalisi", "CSound Analysis"},
    {"buttonDirectHtml", "CSoundAV HTML Help"},
    {"buttonCalculator", "Calculator"},
};

constexpr Menu submenus[] = {
    {"menuSize", "&Size", SizeMenu},
    {"menuAnalisi", "CSound &Analysis", AnalysisMenu},
    {"menuStudioText", "&Text", StudioTextMenu},
};

constexpr CommandAlias aliases[] = {
    {"menuPopupUndo", "menuModificaUndo"},
    {"menuPopupRedo", "menuModificaRedo"},
    {"menuPopupTaglia", "menuModificaTaglia"},
    {"menuPopupCopia", "menuModificaCopia"},
    {"menuPopupIncolla", "menuModificaIncolla"},
    {"menuPopupSelezionaTutto", "menuModificaSelezionaTutto"},
    {"menuToolsBookmark", "menuPopupBookmark"},
    {"menuToolsRemoveBookmark", "menuPopupRemoveBookmark"},
    {"menuToolsRemoveAllBookmark", "menuPopupRemoveAllBookmarks"},
};

constexpr Menu popup = {"menuPopup", "", PopupMenu};

} // namespace

std::span<const Command> editorCommands() { return commands; }
std::span<const Menu> editorSubmenus() { return submenus; }
const Menu &editorPopup() { return popup; }
std::span<const CommandAlias> editorAliases() { return aliases; }

} // namespace ardiphon
