#include "documents/ui/EditedFile.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/RecentFiles.h"
#include "documents/DocumentRules.h"
#include "documents/FileChooser.h"
#include "language/editor/LEditOCX.h"
#include "navigation/ui/Bookmarks.h"
#include "platform/FileAttributes.h"
#include "platform/FileFailure.h"

namespace ardiphon {

EditedFile::EditedFile(LEditOCX &editor, Bookmarks &bookmarks, QString &fileName, FileTexts texts,
                       ProgramContext &program, FileChooser &files, QObject *parent)
    : QObject(parent),
      m_editor(editor),
      m_bookmarks(bookmarks),
      m_fileName(fileName),
      m_texts(std::move(texts)),
      m_program(program),
      m_files(files)
{
}

ConfigurationBlock &EditedFile::config() const { return m_program.config; }

bool EditedFile::hasFile() const { return !m_fileName.isEmpty() && !isUntitled(m_fileName); }

bool EditedFile::isModified() const { return m_editor.GetState(TextState); }

void EditedFile::clearModified() { m_editor.ClearState(TextState); }

SaveResult EditedFile::save()
{
    if (!hasFile())
        return saveAs();
    switch (askToOverwrite()) {
    case Answer::Yes:
        return write();
    case Answer::SaveAs: // whoever gives no other name then still wanted the text saved
        return saveAs() == SaveResult::Saved ? SaveResult::Saved : SaveResult::Refused;
    default:
        return SaveResult::Refused;
    }
}

/// Yes where there is nothing to lose.
Answer EditedFile::askToOverwrite()
{
    if (!m_stamp.isOutdated(m_fileName))
        return Answer::Yes;
    const QString what = m_isOverAnother
                             ? QStringLiteral("File already exists!")
                             : QStringLiteral("File has been changed by another program!");
    return m_program.dialogs.message({what + QStringLiteral("\r\nDo you want to overwrite it?"),
                                      m_texts.overwriteTitle, MessageIcon::Exclamation,
                                      MessageButtons::YesNoSaveAs, true});
}

SaveResult EditedFile::saveAs()
{
    const auto path = m_files.save(m_texts.saveAsTitle, m_texts.saveAsFilter);
    if (!path)
        return SaveResult::Cancelled;
    const SaveResult result = saveTo(*path);
    m_editor.setFocus();
    return result;
}

SaveResult EditedFile::saveTo(const QString &path)
{
    if (path != m_fileName) {
        m_fileName = path;
        m_stamp = {};
        m_isOverAnother = true;
    }
    return write();
}

/// A save that failed says why, and leaves the text modified, so that no later question forgets it;
/// but the file that it met was given up, so it is not asked for again.
SaveResult EditedFile::write()
{
    FileFailure why;
    const bool written = m_editor.SaveFile(m_fileName, &why);
    m_bookmarks.saveIfChanged(m_fileName,
                              written ? SideFileFailure::IsTold : SideFileFailure::GoesWithTheFile);
    if (written)
        clearModified();
    else
        m_program.dialogs.message({notSavedText(m_fileName, why)});
    const FileStamp stamp = FileStamp::of(m_fileName);
    if (written || stamp.isOfAFile()) {
        m_stamp = stamp;
        m_isOverAnother = false;
    }
    emit titleDue();
    return written ? SaveResult::Saved : SaveResult::Failed;
}

/// The marker of an untitled document is a name here.
void EditedFile::Properties()
{
    if (m_fileName.isEmpty())
        m_program.dialogs.message({m_texts.missingFile});
    else
        emit propertiesDue(m_fileName);
}

void EditedFile::load(const QString &path)
{
    m_fileName = path;
    m_editor.ClearDocument();
    FileFailure why;
    // A name without a file is that of a document to be.
    if (!m_editor.LoadFile(path, &why) && why.kind != FileFailure::Kind::NotThere)
        m_program.dialogs.message({notOpenedText(path, why)});
    ClearFileAttributes(path);
    m_stamp = FileStamp::of(path);
    m_isOverAnother = false;
    m_bookmarks.clear();
    clearModified();
    m_editor.ResetUndo();
    emit titleDue();
    loadBookmarks(path);
    emit loaded();
}

void EditedFile::loadBookmarks(const QString &path) { m_bookmarks.load(path); }

void EditedFile::beginEmpty(const QString &name)
{
    m_bookmarks.clear();
    m_editor.ClearDocument();
    clearModified();
    rename(name);
    emit begun();
}

void EditedFile::rename(const QString &name)
{
    m_fileName = name;
    m_stamp = {};
    m_isOverAnother = FileStamp::of(name).isOfAFile();
    emit titleDue();
}

void EditedFile::saveBookmarksIfChanged() { m_bookmarks.saveIfChanged(m_fileName); }

void EditedFile::noteOpened()
{
    UpdateRecentFiles(config(), m_program.settings, m_fileName);
    emit opened();
}

} // namespace ardiphon
