#pragma once

#include "language/ManualIndex.h"
#include "language/TokenColors.h"

#include <QString>
#include <QUrl>

#include <functional>

namespace ardiphon {

class Dialogs;
class LEditOCX;
struct ConfigurationBlock;

/// How help is shown. The window that shows it is not known here.
struct HelpViewer
{
    /// Shows a page of the manual; where it cannot be shown, a message says so.
    std::function<void(const QUrl &page, const QString &startPage)> showPage;
    /// Opens a manual that is not HTML with the system's program for it.
    std::function<void(const QString &file)> openFile;
};

/// The requests for help in the manual that `FileGuida` names: at the word of a view, at its start
/// page, and at the places that menus and toolbars ask for. Without a manual a message says so.
class KeywordHelp
{
public:
    KeywordHelp(ConfigurationBlock &config, Dialogs &dialogs, HelpViewer viewer);

    /// The help key in \a view, of that \a role.
    void keyHelp(LEditOCX &view, DocumentRole role);
    /// The index key in any view.
    void keyIndex();

    /// Takes the word at the caret of \a view for the popup. Returns the caption of its entry.
    QString prepareMenu(LEditOCX &view, DocumentRole role);
    /// The popup entry: help at the word that was prepared.
    void menuPopupOpcodeHelp();

    void helpIndex();    ///< `menuInfoCsoundHelp`, `buttonHelp`
    void csoundAvHelp(); ///< `menuInfoCSoundAVHelp`, `buttonDirectHelp`
    void flagsHelp();    ///< `buttonFlagsHelp`
    void opcodeHelp();   ///< `buttonOpcodeHelp`
    void htmlHelp();     ///< `buttonDirectHtml`: the real-time compiler's, in the user's browser
    /// Help at \a keyword, as any such entry gives it.
    void entryHelp(const QString &keyword);

private:
    /// Whether there is a manual; otherwise the message of the two lines has been given.
    bool hasManual(const QString &firstLine, const QString &secondLine);
    bool hasManualForView();
    bool hasManualForEntry();

    /// Keeps the keyword that the popup's entry asks for; the configuration mirrors it.
    void setHelpWord(const QString &keyword);
    /// Opens the manual at \a keyword; at its start page when the keyword is "" or has no page.
    void ShowHelp(const QString &keyword);
    void ShowHelpIndex();

    ConfigurationBlock &m_config;
    Dialogs &m_dialogs;
    HelpViewer m_viewer;
    ManualIndex m_index;
    QString m_helpWord;
};

} // namespace ardiphon
