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
    return mayOverwrite() ? write() : SaveResult::Cancelled;
}

bool EditedFile::mayOverwrite()
{
    if (!m_stamp.isOutdated(m_fileName))
        return true;
    return m_program.dialogs.message({QStringLiteral("File has been changed by another program!\r\n"
                                                     "Do you want to overwrite it?"),
                                      m_texts.overwriteTitle, MessageIcon::Exclamation,
                                      MessageButtons::YesNo}) == Answer::Yes;
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
    m_fileName = path;
    return write();
}

/// A save that failed says why, and leaves the text modified, so that no later question forgets it.
SaveResult EditedFile::write()
{
    FileFailure why;
    const bool written = m_editor.SaveFile(m_fileName, &why);
    m_bookmarks.saveIfChanged(m_fileName,
                              written ? SideFileFailure::IsTold : SideFileFailure::GoesWithTheFile);
    if (written) {
        clearModified();
        m_stamp = FileStamp::of(m_fileName);
    } else {
        m_program.dialogs.message({notSavedText(m_fileName, why)});
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
    emit titleDue();
}

void EditedFile::saveBookmarksIfChanged() { m_bookmarks.saveIfChanged(m_fileName); }

void EditedFile::noteOpened()
{
    UpdateRecentFiles(config(), m_program.settings, m_fileName);
    emit opened();
}

} // namespace ardiphon
