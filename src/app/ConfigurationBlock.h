#pragma once

#include "app/WordTables.h"
#include "platform/Color.h"

#include <QRect>
#include <QString>

#include <array>
#include <cstdint>

namespace ardiphon {

class SettingsStore;

/// The default of `DefaultFontName`.
inline const QString UsualFontName = QStringLiteral("Courier New");

/// The one block of settings and run-time values that all windows share. It is created by the
/// program's start and handed by reference to whoever needs it.
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

    // The names of the open documents, mirrored here for those who read them: a path, "[Untitled]"
    // or, where nothing has been given yet, "". Before an editor window is opened, what it opens.
    QString CSDFileName;
    QString OrchestraFileName;
    QString ScoreFileName;
    QString LastFileName;  ///< the name last given to an open-by-name routine
    QString StartFileName; ///< the file chosen in the start window

    /// The private folder of this run, with its closing "/"; its path has no blank.
    QString RootPath;
    /// Where the program keeps files of its own from one run to the next.
    QString ProgramFolder;

    QString FontName;          ///< the font now used in the CSD window
    std::int16_t FontSize = 0; ///< the size now used, in points

    // The editor window's rectangle, in twips, handed from one editor window to the next.
    long WindowLeft = 0;
    long WindowTop = 0;
    long WindowWidth = 0;
    long WindowHeight = 0;
    bool WindowMaximized = true;
    QRect WorkArea; ///< in logical pixels

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

    bool FormCSDClosing = false; ///< the user leaves the program as a whole

    // Mirrors whether the bookmarks of that text changed; says nothing of the text itself.
    bool CSDModified = false;
    bool OrchestraModified = false;
    bool ScoreModified = false;

    // What was last handed to a window; mirrored here, and read by nobody.
    QString SettingsCaller;    ///< "CSD" or "ORCSCO"
    QString FindCaller;        ///< "CSD", "ORCHESTRA" or "SCORE"
    QString ReplaceCaller;     ///< as above
    QString FindLineCaller;    ///< as above
    QString NewDocumentChoice; ///< "NEWCSD", "NEWORCSCO", or "" for a cancel

    QString CurrentWord;
    QString HelpWord; ///< mirrors the keyword that the next keyword help asks for; "" means none
    QString Arrangement;

    WordTables Words;
};

/// Fills \a config from \a store: every setting with its default and bounds, the print margins and
/// `WindowMaximized`. What the store lacks, or holds in nonsense, gets its default.
void LoadConfiguration(ConfigurationBlock &config, SettingsStore &store);

/// Gives every colour of \a config its default.
void ResetColors(ConfigurationBlock &config);

} // namespace ardiphon
