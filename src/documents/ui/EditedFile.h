#pragma once

#include "documents/SaveQuestion.h"
#include "workbench/Document.h"

#include <QObject>
#include <QString>

#include <tuple>

namespace ardiphon {

struct ConfigurationBlock;
struct ProgramContext;
class Bookmarks;
class FileChooser;
class LEditOCX;

/// The texts of one document's dialogs.
struct FileTexts
{
    QString overwriteTitle; ///< of the question before another file is overwritten
    QString saveAsTitle;
    QString saveAsFilter;
    QString missingFile; ///< the message when properties are asked for and there is no name
};

/// One text and its file: an editor, its bookmarks, and the record of the document, which the
/// configuration mirrors. What every document of the editor windows does: load, save, begin again.
/// Each failure is reported once, with its reason.
class EditedFile : public QObject
{
    Q_OBJECT

public:
    /// Begins with a document without a name, which the configuration does not mirror yet.
    EditedFile(DocumentRole role, LEditOCX &editor, Bookmarks &bookmarks, FileTexts texts,
               ProgramContext &program, FileChooser &files, QObject *parent);

    LEditOCX &editor() const { return m_editor; }
    Bookmarks &bookmarks() const { return m_bookmarks; }
    const Document &document() const { return m_document; }
    const QString &fileName() const { return m_document.name(); }
    bool hasFile() const { return m_document.hasFile(); }
    bool isModified() const;
    void clearModified();

    // The commands. The mark of a modified text shows whether they saved.
    void Save() { std::ignore = save(); }
    void SaveAs() { std::ignore = saveAs(); }
    /// Writes the file; a document without one asks for its name.
    [[nodiscard]] SaveResult save();
    [[nodiscard]] SaveResult saveAs();
    /// Writes the document to \a path, which becomes its name once it is written.
    [[nodiscard]] SaveResult saveTo(const QString &path);

    /// Asks for the properties of the file to be shown; without a name a message says so.
    void Properties();

    /// Reads text and bookmarks from the file at \a path, which becomes its name whether it can be
    /// read or not. A read-only file that was read becomes writable for its owner, without a
    /// question.
    void load(const QString &path);
    /// Empties the document, whose name is \a name from now on.
    void beginEmpty(const QString &name);
    /// Gives the document a name whose file, if there is one, was neither read nor written here.
    void rename(const QString &name);
    /// Gives up the text: it counts as unmodified, and has no name any more. The shown name stays,
    /// as the window is about to close.
    void giveUp();
    void saveBookmarksIfChanged();

signals:
    /// The name changed, or the text is not modified any more: the title is to be written again.
    void titleChanged();
    /// An empty document is in the editor.
    void begun();
    /// Another document's text is in the editor.
    void loaded();
    /// The properties of that file are to be shown.
    void propertiesRequested(const QString &path);
    /// A file was opened: the recent list may have changed.
    void opened();

protected:
    ProgramContext &program() const { return m_program; }
    ConfigurationBlock &config() const;
    FileChooser &files() const { return m_files; }
    /// Asks whether to save a modified text. Cancel gives the focus to \a focusedOnCancel.
    Answer askToSave(const QString &title, const QString &firstLine, LEditOCX &focusedOnCancel);
    /// Makes \a document the record, and has the configuration mirror it.
    void take(const Document &document);
    /// Puts the document on the recent list.
    void noteOpened();
    /// Reads the bookmarks of the document at \a path from its side file, if it has one.
    virtual void loadBookmarks(const QString &path);

private:
    Answer askToOverwrite();

    LEditOCX &m_editor;
    Bookmarks &m_bookmarks;
    Document m_document;
    const FileTexts m_texts;
    ProgramContext &m_program;
    FileChooser &m_files;
};

} // namespace ardiphon
