#pragma once

#include "documents/FileStamp.h"

#include <QObject>
#include <QString>

#include <functional>

namespace ardiphon {

struct FileQuestion;
struct ProgramContext;
class Bookmarks;
class LEditOCX;

/// The life of the CSD document that an editor holds: new, open, save, and the question before its
/// text is dropped. It knows the editor, its bookmarks and the dialogs, and nothing of the window
/// around them.
class CsdDocument : public QObject
{
    Q_OBJECT

public:
    /// \a chooseNew asks what kind of document to begin and leaves the answer in
    /// `NewDocumentChoice`.
    CsdDocument(LEditOCX &editor, Bookmarks &bookmarks, ProgramContext &program,
                std::function<void()> chooseNew, QObject *parent);

    void New();
    void Open();
    void Save();
    void SaveAs();

    void Properties();

    /// Opens the dropped file at \a path.
    void OpenByName(const QString &path);
    /// Opens a file of the recent list.
    void OpenRecent(const QString &path);
    /// Opens the document that the window was made for.
    void OpenNamedOnLoad(const QString &path);

    /// Asks whether to save a modified text before the program is left. False for a Cancel.
    /// \a saved tells whether the steps that belong to saving are due: they are not after a No.
    bool mayLeave(bool &saved);

    /// Has the file dialogs begin in the working directory again.
    void returnToWorkingDirectory();

signals:
    /// The title is to be written afresh: the name changed, or the text is as it was saved.
    void titleDue();
    /// A new, empty document stands in the editor.
    void begun();
    /// Another document's text stands in the editor.
    void loaded();
    /// A file was opened: the recent list may have changed.
    void opened();
    /// The properties of that file are to be shown.
    void propertiesDue(const QString &path);
    /// The configuration names an orchestra or a score to open: its window takes over.
    void projectWindowDue();

private:
    enum class SaveResult { Saved, Cancelled, Failed };

    bool mayDropText(const QString &title);
    SaveResult save();
    SaveResult saveAs();
    SaveResult writeTo(const QString &path);
    bool mayOverwrite(const QString &path);
    void openPath(const QString &path);
    void load(const QString &path);
    void beginEmpty();
    void handOverToProject();
    void followCurrentFolder();

    LEditOCX &m_editor;
    Bookmarks &m_bookmarks;
    ProgramContext &m_program;
    std::function<void()> m_chooseNew;
    QString m_dialogFolder;
    FileStamp m_stamp; ///< of the file as it was loaded or saved here
};

} // namespace ardiphon
