#pragma once

#include "documents/Commands.h"

namespace ardiphon {

// What the menus and toolbars of both editor windows have in common; a command that a window does
// not have is left out there.

inline constexpr const char *EditMenu[] = {
    "menuModificaUndo",        "menuModificaRedo",      nullptr, "menuModificaTaglia",
    "menuModificaCopia",       "menuModificaIncolla",   nullptr, "menuModificaTrova",
    "menuModificaSostituisci", "menuModificaTrovaRiga", nullptr, "menuModificaSelezionaTutto",
};

inline constexpr const char *FormatMenu[] = {"menuFormatoTipocarattere", "menuSize", "menuLista"};
inline constexpr const char *SizeMenu[] = {"menuFontSize"};

inline constexpr const char *ToolsMenu[] = {
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

inline constexpr const char *StudioMenu[] = {
    "menuStudioOutline",
    nullptr,
    "menuStudioGo",
    "menuStudioInstrument",
    nullptr,
    "menuStudioFold",
    "menuStudioFoldAll",
    "menuStudioUnfoldAll",
    nullptr,
    "menuStudioRename",
    nullptr,
    "menuStudioCheck",
    "menuStudioProblems",
    "menuStudioNextProblem",
    "menuStudioPreviousProblem",
    nullptr,
    "menuStudioComplete",
    nullptr,
    "menuStudioText",
};

inline constexpr const char *StudioTextMenu[] = {
    "menuStudioComment",
    nullptr,
    "menuStudioDuplicate",
    "menuStudioMoveUp",
    "menuStudioMoveDown",
    "menuStudioDeleteToEnd",
    "menuStudioJoin",
    "menuStudioReindent",
    nullptr,
    "menuStudioUpperCase",
    "menuStudioLowerCase",
    nullptr,
    "menuStudioNextOccurrence",
};

inline constexpr const char *WindowMenu[] = {
    "menuWindowLineNumbers", "menuWindowBarraBook",  "menuWindowHelp",
    "menuWindowToolbar",     "menuWindowInstrument", nullptr,
    "menuWindowAllTools",    "menuWindowRestore",    nullptr,
    "menuWindowUp",          "menuWindowDown",       "menuWindowLeft",
    "menuWindowRight",
};

inline constexpr const char *AnalysisMenu[] = {
    "menuHetro",  "menuLPAnal", "menuPVAnal",  "menuPVLook",
    "menuCVAnal", "menuDNoise", "menuSndInfo",
};

inline constexpr const char *InfoMenu[] = {
    "menuInfoArdiphonHelp", nullptr, "menuInfoCsoundHelp",
    "menuInfoCSoundAVHelp", nullptr, "menuInfoAbout",
};

inline constexpr const char *PopupMenu[] = {
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
    "menuPopupDefinition",
    "menuPopupReference",
    "menuPopupLastPosition",
    nullptr,
    "menuPopupOpcodeHelp",
};

inline constexpr ToolButton ToolbarLine = {nullptr, nullptr, nullptr, nullptr};

inline constexpr ToolButton FolderButton = {"buttonDefaultDir", "buttonDefaultDir",
                                            "default-folder", "Default Directory"};
inline constexpr ToolButton UndoButton = {"buttonUndo", "menuModificaUndo", "undo", "Undo"};
inline constexpr ToolButton RedoButton = {"buttonRedo", "menuModificaRedo", "redo", "Redo"};
inline constexpr ToolButton SmallerFontButton = {"buttonCarattereMeno", "buttonCarattereMeno",
                                                 "font-smaller", "Smaller Font"};
inline constexpr ToolButton LargerFontButton = {"buttonCaratterePiu", "buttonCaratterePiu",
                                                "font-larger", "Larger Font"};
inline constexpr ToolButton CompileButton = {"buttonCsound", "menuCSound", "compile",
                                             "CSound Console Compiler"};
inline constexpr ToolButton WinsoundButton = {"buttonWinsound", "menuToolsWinsound", "winsound",
                                              "Winsound Compiler"};
inline constexpr ToolButton CSoundAVButton = {"buttonDirectCsound", "menuCSoundAV", "csoundav",
                                              "CSoundAV"};
inline constexpr ToolButton HelpButton = {"buttonHelp", "menuInfoCsoundHelp", "help",
                                          "CSound Help"};
inline constexpr ToolButton OpcodeHelpButton = {"buttonOpcodeHelp", "buttonOpcodeHelp",
                                                "opcode-help", "Opcode Help"};
inline constexpr ToolButton CSoundAVHelpButton = {"buttonDirectHelp", "menuInfoCSoundAVHelp",
                                                  "direct-help", "CSoundAV Help"};
inline constexpr ToolButton CalculatorButton = {"buttonCalculator", "buttonCalculator",
                                                "calculator", "Calculator"};
inline constexpr ToolButton TerminalButton = {"buttonCommand", "menuCommandLine", "terminal",
                                              "Command Line"};

inline constexpr ToolButton AnalysisButtons[] = {
    {"buttonHetro", "menuHetro", "hetro", "Hetro"},
    {"buttonLPAnal", "menuLPAnal", "lpanal", "LPAnal"},
    {"buttonPVAnal", "menuPVAnal", "pvanal", "PVAnal"},
    {"buttonPVLook", "menuPVLook", "pvlook", "PVLook"},
    {"buttonCVAnal", "menuCVAnal", "cvanal", "CVAnal"},
    {"buttonSndInfo", "menuSndInfo", "sndinfo", "SndInfo"},
    {"buttonDNoise", "menuDNoise", "dnoise", "DNoise"},
    {"buttonDirectHtml", "buttonDirectHtml", "direct-html", "CSoundAV HTML Help"},
};

inline constexpr ToolButton AnalysisButton = {"buttonAnalisi", "buttonAnalisi", "analysis",
                                              "CSound Analysis", AnalysisButtons};

} // namespace ardiphon
