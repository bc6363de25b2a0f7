#pragma once

#include "documents/Commands.h"

namespace ardiphon {

// What the menus of both editor windows hold alike; a command that a window lacks is left out
// there. ----------------------------------------------

inline constexpr const char *EditMenu[] = {
    "menuModificaUndo",        "menuModificaRedo",      nullptr, "menuModificaTaglia",
    "menuModificaCopia",       "menuModificaIncolla",   nullptr, "menuModificaTrova",
    "menuModificaSostituisci", "menuModificaTrovaRiga", nullptr, "menuModificaSelezionaTutto",
};

inline constexpr const char *FormatMenu[] = {"menuFormatoTipocarattere", "menuSize", "menuLista"};
inline constexpr const char *SizeMenu[] = {"menuFontSize"};

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
