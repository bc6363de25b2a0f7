#pragma once

#include "documents/FileStamp.h"
#include "documents/SaveQuestion.h"

#include <QObject>
#include <QString>

namespace ardiphon {

struct ConfigurationBlock;
struct ProgramContext;
class Bookmarks;
class FileChooser;
class LEditOCX;

/// The texts of one document's dialogs.
struct FileTexts
{
    QString overwriteTitle; ///< of the question before a file is lost that is not as it was here
    QString saveAsTitle;
    QString saveAsFilter;
    QString missingFile; ///< what is said where properties are asked for and there is no name
};

/// One text and its file: an editor, its bookmarks, and the name under which the configuration
/// keeps it. What every document of the editor windows does: load, save, begin afresh.
class EditedFile : public QObject
{
    Q_OBJECT

public:
    /// \a fileName: the field of the configuration that names the document.
    EditedFile(LEditOCX &editor, Bookmarks &bookmarks, QString &fileName, FileTexts texts,
               ProgramContext &program, FileChooser &files, QObject *parent);

    LEditOCX &editor() const { return m_editor; }
    Bookmarks &bookmarks() const { return m_bookmarks; }
    const QString &fileName() const { return m_fileName; }
    bool hasFile() const;
    bool isModified() const;
    void clearModified();

    void Save() { save(); }
    void SaveAs() { saveAs(); }
    /// Writes the file; a document without one asks for its name.
    SaveResult save();
    SaveResult saveAs();
    /// Writes the document to \a path, which becomes its name.
    SaveResult saveTo(const QString &path);

    /// Has the properties of the file shown.
    void Properties();

    /// Takes text and bookmarks from the file at \a path, which becomes its name.
    void load(const QString &path);
    /// Empties the document, which goes by \a name from now on.
    void beginEmpty(const QString &name);
    /// Gives the document a name whose file, if there is one, was neither read nor written here.
    void rename(const QString &name);
    void saveBookmarksIfChanged();

signals:
    /// The name is to be shown afresh: it changed, or the text is as it was saved.
    void titleDue();
    /// An empty document stands in the editor.
    void begun();
    /// Another document's text stands in the editor.
    void loaded();
    /// The properties of that file are to be shown.
    void propertiesDue(const QString &path);
    /// A file was opened: the recent list may have changed.
    void opened();

protected:
    ProgramContext &program() const { return m_program; }
    ConfigurationBlock &config() const;
    FileChooser &files() const { return m_files; }
    /// Puts the document on the recent list.
    void noteOpened();
    /// Takes the bookmarks of the document at \a path from its side file, if it has one.
    virtual void loadBookmarks(const QString &path);

private:
    SaveResult write();
    Answer askToOverwrite();

    LEditOCX &m_editor;
    Bookmarks &m_bookmarks;
    QString &m_fileName;
    const FileTexts m_texts;
    ProgramContext &m_program;
    FileChooser &m_files;
    FileStamp m_stamp;            ///< of the file as it was loaded or saved here
    bool m_isOverAnother = false; ///< a file may have had this name before the document
};

} // namespace ardiphon
