#pragma once

#include "platform/Color.h"

#include <QRect>
#include <QString>

#include <array>
#include <cstdint>
#include <memory>

namespace ardiphon {

class SettingsStore;
class WordTables;

/// The default of `DefaultFontName`.
inline const QString UsualFontName = QStringLiteral("Courier New");

/// The one block of settings and run-time values that all windows share. It is created by the
/// program's start and passed by reference to everything that needs it.
struct ConfigurationBlock
{
    // Settings, in the order in which they are read.
    QString FileGuida;        ///< start page of the Csound manual
    QString FileCSound;       ///< the console compiler
    QString FileWinsound;     ///< the Winsound compiler
    QString FileDirectCSound; ///< the CSoundAV compiler
    QString FileGuidaHtml;    ///< the CSoundAV html help
    QString WaveEditor;
    QString WorkingDirectory; ///< initial folder of the file dialogs
    QString TabSize;          ///< in characters
    QString DefaultFontSize;  ///< in points
    QString DefaultFontName;
    QString SaveToolsPreferences; ///< "YES" or "NO"
    QString StartupAction;        ///< "STARTWINDOW", "CSD" or "ORCSCO"
    QString WheelLines;
    std::uint8_t WheelLinesCount = 3; ///< lines a wheel notch scrolls, 1 to 6
    QString AutoIndent;               ///< on when its number is exactly 1

    // Colours.
    Color ColorBackground;
    Color ColorText;
    Color ColorOrchestra;
    Color ColorOrchestraBK;
    Color ColorCSD;
    Color ColorCSDBK;
    Color ColorReminders; ///< comments
    Color ColorFiles;     ///< text in double quotes
    Color ColorFilesBK;
    Color ColorMacro;
    Color ColorMacroBK;
    Color ColorSelectionBack;
    Color ColorSelectionFore;
    Color ColorInstrEndin;
    Color ColorInstrEndinBK;

    // Settings of the sheet "Studio" (StudioSettings.h).
    bool ColoursByMeaning = false;     ///< views are coloured as the language reads the text
    bool CompletionWhileTyping = true; ///< words are proposed; on demand they are anyway
    bool ArgumentHints = true;         ///< the arguments of the opcode at the caret are shown
    bool PointerHelp = true;           ///< what the pointer rests on is explained
    bool MarkOccurrences = true;       ///< the name at the caret is marked wherever it is
    bool CheckWhileTyping = true;      ///< the compiler checks the piece when one pauses typing
    bool IndentByBlocks = false;       ///< a new line is indented by the block that it is in

    // The names of the open documents, mirrored here for the parts that read them: a path,
    // "[Untitled]" or, where there is no name yet, "". Before an editor window is opened, the
    // document that it opens.
    QString CSDFileName;
    QString OrchestraFileName;
    QString ScoreFileName;
    QString LastFileName;  ///< the last name passed to an open-by-name routine
    QString StartFileName; ///< the file chosen in the start window

    /// The private folder of this run, with its closing "/"; its path has no blank.
    QString RootPath;
    /// The folder of the program's own files that are kept between runs.
    QString ProgramFolder;

    QString FontName;          ///< the font now used in the CSD window
    std::int16_t FontSize = 0; ///< the size now used, in points

    // The editor window's rectangle, in twips, passed from one editor window to the next.
    long WindowLeft = 0;
    long WindowTop = 0;
    long WindowWidth = 0;
    long WindowHeight = 0;
    bool WindowMaximized = true;

    std::array<QString, 5> RecentFiles; ///< indices 1 to 4, 1 the newest

    // Print margins, in millimetres; not stored.
    long MarginLeft = 10;
    long MarginRight = 10;
    long MarginTop = 10;
    long MarginBottom = 10;

    // Tools of the editor windows, shared by both.
    bool LineNumbersVisible = false;
    bool BookBarVisible = false;
    bool OnLineHelpVisible = false;
    bool ToolbarVisible = false;

    // Mirrors whether the bookmarks of that text have changed, not whether the text has.
    bool CSDModified = false;
    bool OrchestraModified = false;
    bool ScoreModified = false;

    // What was last passed to a window; only mirrored here, nothing reads it.
    QString SettingsCaller;    ///< "CSD" or "ORCSCO"
    QString FindCaller;        ///< "CSD", "ORCHESTRA" or "SCORE"
    QString ReplaceCaller;     ///< as above
    QString FindLineCaller;    ///< as above
    QString NewDocumentChoice; ///< "NEWCSD", "NEWORCSCO", or "" after Cancel

    // What the windows know of themselves; only mirrored here (WindowMirror), nothing reads it.
    QRect WorkArea;              ///< of the screen when a window last asked, in logical pixels
    QString Arrangement;         ///< "orizzontale", "verticale", "orchestra" or "score"
    bool FormCSDClosing = false; ///< the user ends the whole program

    QString CurrentWord;
    QString HelpWord; ///< mirrors the keyword that the next keyword help asks for; "" means none

    /// What is known of the language, made and read by the program's start; null until then.
    std::shared_ptr<WordTables> Words;
};

/// Fills \a config from \a store: every setting with its default and bounds, the print margins and
/// `WindowMaximized`. A value that is missing in the store, or invalid there, gets its default.
void LoadConfiguration(ConfigurationBlock &config, SettingsStore &store);

/// Gives every colour of \a config its default.
void ResetColors(ConfigurationBlock &config);

} // namespace ardiphon
