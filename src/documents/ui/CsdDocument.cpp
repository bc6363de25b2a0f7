#include "documents/ui/CsdDocument.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/RecentFiles.h"
#include "documents/DocumentRules.h"
#include "language/editor/LEditOCX.h"
#include "navigation/ui/Bookmarks.h"
#include "platform/Dialogs.h"
#include "platform/FileAttributes.h"

#include <QDir>
#include <QFileInfo>

namespace ardiphon {

namespace {

constexpr int TextState = 2;

const QString OpenFilter =
    QStringLiteral("CSound Files (*.csd;*.orc;*.sco)|*.csd;*.orc;*.sco|Csd Files (*.csd)|*.csd|"
                   "Orc/Sco Files (*.orc;*.sco)|*.orc;*.sco|Text Files (*.txt)|*.txt|"
                   "All Files (*.*)|*.*");
const QString SaveFilter =
    QStringLiteral("Csound CSD (*.csd)|*.csd|Text Files (*.txt)|*.txt|All Files (*.*)|*.*");

Message saveQuestion(const QString &title, const QString &firstLine)
{
    return {firstLine + QStringLiteral("\r\nDo you want to save it?"), title,
            MessageIcon::Exclamation, MessageButtons::YesNoCancel};
}

} // namespace

CsdDocument::CsdDocument(LEditOCX &editor, Bookmarks &bookmarks, ProgramContext &program,
                         std::function<void()> chooseNew, QObject *parent)
    : QObject(parent),
      m_editor(editor),
      m_bookmarks(bookmarks),
      m_program(program),
      m_chooseNew(std::move(chooseNew)),
      m_dialogFolder(QDir::currentPath())
{
    if (!program.config.WorkingDirectory.isEmpty())
        returnToWorkingDirectory();
}

void CsdDocument::returnToWorkingDirectory() { m_dialogFolder = m_program.config.WorkingDirectory; }

void CsdDocument::New()
{
    if (!mayDropText(QStringLiteral("New File")))
        return;
    ConfigurationBlock &config = m_program.config;
    m_bookmarks.saveIfChanged(config.CSDFileName);
    config.NewDocumentChoice.clear();
    m_chooseNew();
    if (config.NewDocumentChoice == QLatin1String("NEWCSD")) {
        beginEmpty();
    } else if (config.NewDocumentChoice == QLatin1String("NEWORCSCO")) {
        config.OrchestraFileName.clear();
        config.ScoreFileName.clear();
        m_editor.ClearDocument();
        handOverToProject();
    }
}

void CsdDocument::beginEmpty()
{
    m_bookmarks.clear();
    m_program.config.CSDFileName = Untitled;
    m_stamp = {};
    m_editor.ClearDocument();
    m_editor.setFocus();
    m_editor.ClearState(TextState);
    emit titleDue();
    emit begun();
}

void CsdDocument::Open()
{
    if (!mayDropText(QStringLiteral("Open File")))
        return;
    m_bookmarks.saveIfChanged(m_program.config.CSDFileName);
    const auto path =
        m_program.dialogs.openFile({QStringLiteral("Open File"), OpenFilter, m_dialogFolder});
    if (!path)
        return;
    m_program.config.CSDFileName = *path;
    followCurrentFolder();
    openPath(*path);
}

void CsdDocument::OpenByName(const QString &path)
{
    if (!mayDropText(QStringLiteral("Save File")))
        return;
    m_bookmarks.save(m_program.config.CSDFileName);
    m_program.config.LastFileName = path;
    openPath(path);
    m_editor.setFocus();
}

void CsdDocument::OpenRecent(const QString &path)
{
    if (!mayDropText(QStringLiteral("Save File")))
        return;
    m_bookmarks.saveIfChanged(m_program.config.CSDFileName);
    m_program.config.CSDFileName = path;
    m_dialogFolder = QDir::currentPath();
    openPath(path);
}

void CsdDocument::openPath(const QString &path)
{
    m_program.config.OrchestraFileName.clear();
    m_program.config.ScoreFileName.clear();
    if (nameDocument(m_program.config, m_program.windows, path) == StartWindow::FormORCSCO)
        handOverToProject();
    else
        load(path);
}

void CsdDocument::OpenNamedOnLoad(const QString &path)
{
    load(path);
    m_dialogFolder = QFileInfo(path).path();
}

void CsdDocument::load(const QString &path)
{
    m_editor.ClearDocument();
    m_editor.LoadFile(path);
    ClearFileAttributes(path);
    m_stamp = FileStamp::of(path);
    m_bookmarks.clear();
    m_editor.ClearState(TextState);
    m_editor.ResetUndo();
    emit titleDue();
    m_bookmarks.load(path);
    emit loaded();
    UpdateRecentFiles(m_program.config, m_program.settings, path);
    emit opened();
}

void CsdDocument::handOverToProject()
{
    m_editor.ClearState(TextState);
    emit projectWindowDue();
}

void CsdDocument::Save() { save(); }

void CsdDocument::SaveAs() { saveAs(); }

void CsdDocument::Properties()
{
    if (m_program.config.CSDFileName.isEmpty())
        m_program.dialogs.message({QStringLiteral("Cannot find File!")});
    else
        emit propertiesDue(m_program.config.CSDFileName);
}

CsdDocument::SaveResult CsdDocument::save()
{
    const QString &path = m_program.config.CSDFileName;
    if (isUntitled(path))
        return saveAs();
    return mayOverwrite(path) ? writeTo(path) : SaveResult::Cancelled;
}

bool CsdDocument::mayOverwrite(const QString &path)
{
    if (!m_stamp.isOutdated(path))
        return true;
    return m_program.dialogs.message({QStringLiteral("File has been changed by another program!\r\n"
                                                     "Do you want to overwrite it?"),
                                      QStringLiteral("Save File"), MessageIcon::Exclamation,
                                      MessageButtons::YesNo}) == Answer::Yes;
}

CsdDocument::SaveResult CsdDocument::saveAs()
{
    const auto path = m_program.dialogs.saveFile(
        {QStringLiteral("Save File As ..."), SaveFilter, m_dialogFolder});
    if (!path)
        return SaveResult::Cancelled;
    m_program.config.CSDFileName = *path;
    followCurrentFolder();
    const SaveResult result = writeTo(*path);
    m_editor.setFocus();
    return result;
}

/// A save that failed leaves the text modified, so that no later question forgets it.
CsdDocument::SaveResult CsdDocument::writeTo(const QString &path)
{
    const bool written = m_editor.SaveFile(path);
    m_bookmarks.saveIfChanged(path);
    if (written) {
        m_editor.ClearState(TextState);
        m_stamp = FileStamp::of(path);
    }
    emit titleDue();
    return written ? SaveResult::Saved : SaveResult::Failed;
}

/// The dialogs begin in the folder of the file chosen last, as long as it is another folder than
/// the working directory.
void CsdDocument::followCurrentFolder()
{
    const QString folder = QFileInfo(m_program.config.CSDFileName).path();
    if (folder != m_program.config.WorkingDirectory)
        m_dialogFolder = folder;
}

/// A Save As that the user cancels does not stop the operation, but a save that failed brings the
/// question back: the user would lose the text without having been told.
bool CsdDocument::mayDropText(const QString &title)
{
    while (m_editor.GetState(TextState)) {
        const Answer answer =
            m_program.dialogs.message(saveQuestion(title, QStringLiteral("File has changed!")));
        if (answer == Answer::Cancel)
            m_editor.setFocus();
        if (answer != Answer::Yes)
            return answer == Answer::No;
        if (save() != SaveResult::Failed)
            return true;
    }
    return true;
}

bool CsdDocument::mayLeave(bool &saved)
{
    saved = true;
    while (m_editor.GetState(TextState)) {
        const Answer answer = m_program.dialogs.message(
            saveQuestion(QStringLiteral("Exit Program"), QStringLiteral("File CSD has changed!")));
        if (answer != Answer::Yes) {
            saved = answer == Answer::Cancel;
            return answer == Answer::No;
        }
        const bool named = !m_program.config.CSDFileName.isEmpty();
        if ((named ? save() : saveAs()) != SaveResult::Failed)
            return true;
    }
    return true;
}

} // namespace ardiphon
