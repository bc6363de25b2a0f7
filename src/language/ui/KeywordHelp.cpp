#include "language/ui/KeywordHelp.h"

#include "app/ConfigurationBlock.h"
#include "language/HelpWord.h"
#include "language/ManualText.h"
#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "platform/Dialogs.h"

#include <QFileInfo>

#include <utility>

namespace ardiphon {

KeywordHelp::KeywordHelp(ConfigurationBlock &config, Dialogs &dialogs, HelpViewer viewer)
    : m_config(config), m_dialogs(dialogs), m_viewer(std::move(viewer)), m_index(QString())
{
}

void KeywordHelp::keyHelp(LEditOCX &view, DocumentRole role)
{
    if (!hasManualForView())
        return;
    view.UpdateCurrentWord();
    setHelpWord(keyHelpWord(*m_config.Words, role, view.CurrentWord()));
    ShowHelp(m_helpWord);
}

void KeywordHelp::keyIndex()
{
    if (hasManualForView())
        ShowHelpIndex();
}

QString KeywordHelp::prepareMenu(LEditOCX &view, DocumentRole role)
{
    view.UpdateCurrentWord();
    const PopupHelpWord found = popupHelpWord(*m_config.Words, role, view.CurrentWord());
    setHelpWord(found.HelpWord);
    return found.caption();
}

void KeywordHelp::menuPopupOpcodeHelp()
{
    if (hasManualForView())
        ShowHelp(m_helpWord);
}

void KeywordHelp::helpIndex()
{
    if (hasManualForEntry())
        ShowHelpIndex();
}

void KeywordHelp::csoundAvHelp() { entryHelp(CSoundAVKeyword); }

void KeywordHelp::flagsHelp() { entryHelp(FlagsKeyword); }

void KeywordHelp::htmlHelp()
{
    if (m_config.FileGuidaHtml.isEmpty())
        m_dialogs.message({QStringLiteral("No File defined for CSoundAV HTML Help\r\n"
                                          "Please set: File->Settings->CSoundAV Help")});
    else
        m_viewer.openFile(m_config.FileGuidaHtml);
}

void KeywordHelp::entryHelp(const QString &keyword)
{
    if (hasManualForEntry())
        ShowHelp(keyword);
}

void KeywordHelp::opcodeHelp()
{
    if (!hasManualForEntry())
        return;
    setHelpWord(QString());
    ShowHelp(m_helpWord);
}

bool KeywordHelp::hasManual(const QString &firstLine, const QString &secondLine)
{
    if (!m_config.FileGuida.isEmpty())
        return true;
    m_dialogs.message({firstLine + QStringLiteral("\r\n") + secondLine});
    return false;
}

bool KeywordHelp::hasManualForView()
{
    return hasManual(QStringLiteral("No File associated to Csound Help"),
                     QStringLiteral("Select File->Settings->CSound Help"));
}

bool KeywordHelp::hasManualForEntry()
{
    return hasManual(QStringLiteral("No File defined for CSound Help"),
                     QStringLiteral("Please set: File->Settings->CSound Help"));
}

void KeywordHelp::setHelpWord(const QString &keyword)
{
    m_helpWord = keyword;
    m_config.HelpWord = keyword;
}

void KeywordHelp::ShowHelp(const QString &keyword)
{
    if (m_index.startPage() != m_config.FileGuida)
        m_index = ManualIndex(m_config.FileGuida);
    if (const auto page = m_index.find(keyword))
        m_viewer.showPage(*page, m_config.FileGuida);
    else
        ShowHelpIndex();
}

void KeywordHelp::ShowHelpIndex()
{
    const QString &manual = m_config.FileGuida;
    if (QFileInfo(manual).isFile() && !isManualPage(manual))
        m_viewer.openFile(manual);
    else
        m_viewer.showPage(QUrl::fromLocalFile(QFileInfo(manual).absoluteFilePath()), manual);
}

} // namespace ardiphon
