#include "documents/ui/EditedFile.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/RecentFiles.h"
#include "documents/DocumentMirror.h"
#include "documents/FileChooser.h"
#include "language/editor/LEditOCX.h"
#include "navigation/ui/Bookmarks.h"
#include "platform/FileAttributes.h"

namespace ardiphon {

EditedFile::EditedFile(DocumentRole role, LEditOCX &editor, Bookmarks &bookmarks, FileTexts texts,
                       ProgramContext &program, FileChooser &files, QObject *parent)
    : QObject(parent),
      m_editor(editor),
      m_bookmarks(bookmarks),
      m_document(role),
      m_texts(std::move(texts)),
      m_program(program),
      m_files(files)
{
    const auto mirror = [this](bool changed) {
        mirrorBookmarks(config(), m_document.role(), changed);
    };
    connect(&bookmarks, &Bookmarks::changed, this, mirror);
    mirror(bookmarks.areChanged());
}

ConfigurationBlock &EditedFile::config() const { return m_program.config; }

void EditedFile::take(const Document &document)
{
    m_document = document;
    mirrorDocument(config(), m_document);
}

bool EditedFile::isModified() const { return m_editor.GetState(TextState); }

void EditedFile::clearModified() { m_editor.ClearState(TextState); }

SaveResult EditedFile::save()
{
    if (!m_document.hasFile())
        return saveAs();
    switch (askToOverwrite()) {
    case Answer::Yes:
        return saveTo(m_document.name());
    case Answer::SaveAs: // a user who then gives no other name still wanted the text saved
        return saveAs() == SaveResult::Saved ? SaveResult::Saved : SaveResult::Refused;
    default:
        return SaveResult::Refused;
    }
}

Answer EditedFile::askToSave(const QString &title, const QString &firstLine,
                             LEditOCX &focusedOnCancel)
{
    const Answer answer = ardiphon::askToSave(
        m_program.dialogs, saveQuestion(title, firstLine), [this] { return isModified(); },
        [this] { return save(); });
    if (answer == Answer::Cancel)
        focusedOnCancel.setFocus();
    return answer;
}

/// The answer is Yes where there is nothing to lose.
Answer EditedFile::askToOverwrite()
{
    const SaveConflict conflict = m_document.conflict();
    if (conflict == SaveConflict::None)
        return Answer::Yes;
    const QString what = conflict == SaveConflict::AnotherFile
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

/// A save that fails says why, and leaves the text modified, so that the user is asked again later.
/// After a failure under a new name the document is as it was; under its own name, the user has
/// agreed to lose the file that is there, and is not asked about that again.
SaveResult EditedFile::saveTo(const QString &path)
{
    const auto written = m_editor.SaveFile(path);
    if (written) {
        take(m_document.saved(path, *written));
        m_bookmarks.saveIfChanged(path);
        clearModified();
    } else {
        if (path == m_document.name()) {
            m_bookmarks.saveIfChanged(path, SideFileFailure::Silent);
            take(m_document.withFileGivenUp());
        }
        m_program.dialogs.message({notSavedText(path, written.failure())});
    }
    emit titleChanged();
    return written ? SaveResult::Saved : SaveResult::Failed;
}

/// The marker of an untitled document counts as a name here.
void EditedFile::Properties()
{
    if (m_document.name().isEmpty())
        m_program.dialogs.message({m_texts.missingFile});
    else
        emit propertiesRequested(m_document.name());
}

void EditedFile::load(const QString &path)
{
    m_editor.ClearDocument();
    const auto form = m_editor.LoadFile(path);
    if (form)
        ClearFileAttributes(path);
    take(Document::loaded(m_document.role(), path, form ? *form : DocumentForm()));
    // A name without a file is that of a new document.
    if (!form && form.failure().kind != FileFailure::Kind::NotThere)
        m_program.dialogs.message({notOpenedText(path, form.failure())});
    m_bookmarks.clear();
    clearModified();
    m_editor.ResetUndo();
    emit titleChanged();
    loadBookmarks(path);
    emit loaded();
}

void EditedFile::loadBookmarks(const QString &path) { m_bookmarks.load(path); }

void EditedFile::beginEmpty(const QString &name)
{
    m_bookmarks.clear();
    m_editor.ClearDocument();
    clearModified();
    take(Document(m_document.role()));
    rename(name);
    emit begun();
}

void EditedFile::rename(const QString &name)
{
    take(m_document.renamed(name));
    emit titleChanged();
}

void EditedFile::giveUp()
{
    clearModified();
    take(Document(m_document.role()));
}

void EditedFile::saveBookmarksIfChanged() { m_bookmarks.saveIfChanged(m_document.name()); }

void EditedFile::noteOpened()
{
    UpdateRecentFiles(config(), m_program.settings, m_document.name());
    emit opened();
}

} // namespace ardiphon
