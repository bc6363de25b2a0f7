#pragma once

#include "documents/ui/EditedFile.h"

#include <functional>

namespace ardiphon {

/// The CSD document in an editor: new, open, save, the question before its text is discarded, and
/// the conversion to and from an orchestra and a score. It does not know the window.
class CsdDocument : public EditedFile
{
    Q_OBJECT

public:
    /// \a chooseNew asks what kind of document to begin, and returns what FormNew::choose returns.
    CsdDocument(LEditOCX &editor, Bookmarks &bookmarks, ProgramContext &program, FileChooser &files,
                std::function<QString()> chooseNew, QObject *parent);

    void New();
    void Open();

    /// Opens the dropped file at \a path.
    void OpenByName(const QString &path);
    /// Opens a file of the recent list.
    void OpenRecent(const QString &path);
    /// Opens the document that the window was made for.
    void OpenNamedOnLoad(const QString &path);

    /// Writes the two parts of the document to an orchestra and a score.
    void ExportToProject();
    /// Replaces the document by one made from an orchestra and a score.
    void ImportProject();

    /// Asks whether to save a modified text before the program ends. False after Cancel. \a saved
    /// becomes whether the further steps of saving are to follow: not after No.
    bool mayLeave(bool &saved);

signals:
    /// The configuration names an orchestra or a score; the project's window is to open it.
    void projectWindowRequested();
    /// The title with the program's name first is to be shown, until titleChanged().
    void programFirstTitleRequested();

private:
    bool mayDropText(const QString &title);
    /// False when the file is for the project's window, which is asked to open it.
    bool openPath(const QString &path);
    void open(const QString &path);
    void handOverToProject();

    std::function<QString()> m_chooseNew;
};

} // namespace ardiphon
