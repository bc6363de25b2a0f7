#pragma once

#include "documents/ui/EditedFile.h"

#include <functional>

namespace ardiphon {

/// The life of the CSD document that an editor holds: new, open, save, the question before its text
/// is dropped, and its way to and from an orchestra and a score. It knows nothing of the window
/// around it.
class CsdDocument : public EditedFile
{
    Q_OBJECT

public:
    /// \a chooseNew asks what kind of document to begin, and gives what FormNew::choose gives.
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

    /// Asks whether to save a modified text before the program is left. False for a Cancel.
    /// \a saved tells whether the steps that belong to saving are due: they are not after a No.
    bool mayLeave(bool &saved);

signals:
    /// The configuration names an orchestra or a score to open: its window takes over.
    void projectWindowRequested();
    /// The title names the program first, as long as no other is due.
    void programFirstTitleRequested();

private:
    bool mayDropText(const QString &title);
    /// False when the file is one for the project's window, which takes over.
    bool openPath(const QString &path);
    void open(const QString &path);
    void handOverToProject();

    std::function<QString()> m_chooseNew;
};

} // namespace ardiphon
